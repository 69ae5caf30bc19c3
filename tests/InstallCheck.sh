#!/usr/bin/env bash
# InstallCheck.sh BUILD_DIR: installs the build under a temporary prefix, checks that every file
# lands where the desktop looks for it, validates the desktop entry and the AppStream metadata,
# and has the installed help program find the installed help page.
set -euo pipefail
build=$1
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
cmake --install "$build" --prefix "$prefix" >/dev/null

failed=0
for file in bin/vellumry bin/tomeview \
  share/vellumry/ui/start.png share/vellumry/ui/about.jpg share/vellumry/help/index.html \
  share/applications/vellumry.desktop share/metainfo/vellumry.metainfo.xml \
  share/icons/hicolor/scalable/apps/vellumry.svg share/icons/hicolor/48x48/apps/vellumry.png \
  share/icons/hicolor/128x128/apps/vellumry.png share/icons/hicolor/256x256/apps/vellumry.png; do
  [ -f "$prefix/$file" ] || { echo "not installed: $file"; failed=1; }
done

# The PNG icons must have the size their folder names.
for size in 48 128 256; do
  png="$prefix/share/icons/hicolor/${size}x${size}/apps/vellumry.png"
  width=$(od -An -tu1 -j16 -N8 "$png" | awk '{print $3*256+$4 "x" $7*256+$8}')
  [ "$width" = "${size}x${size}" ] || { echo "icon ${size}: is $width"; failed=1; }
done

# The help program, started from bin/, opens the page in share/vellumry/help.
stub=$(mktemp -d -p "$prefix")
printf '#!/bin/sh\necho "$1"\n' >"$stub/xdg-open"
chmod +x "$stub/xdg-open"
opened=$(PATH="$stub:$PATH" "$prefix/bin/tomeview")
[ "$opened" = "$prefix/share/vellumry/help/index.html" ] || { echo "tomeview opened: $opened"; failed=1; }

if command -v desktop-file-validate >/dev/null; then
  desktop-file-validate "$prefix/share/applications/vellumry.desktop" || failed=1
else
  echo "desktop-file-validate missing: entry not validated"
fi
if command -v appstreamcli >/dev/null; then
  appstreamcli validate --no-net "$prefix/share/metainfo/vellumry.metainfo.xml" || failed=1
else
  echo "appstreamcli missing: metadata not validated"
fi
exit $failed
