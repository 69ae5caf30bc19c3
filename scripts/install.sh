#!/usr/bin/env bash
# install.sh [PREFIX]: builds the program for release in build-release and installs it under
# PREFIX (default /usr/local), then tells the desktop about the new entry and icon.
set -euo pipefail
cd "$(dirname "$0")/.."
prefix=${1:-/usr/local}
bash scripts/install-deps.sh
# -O2, not -O3: GCC 12 warns falsely on inlined string code at -O3, and warnings stop the build.
[ -f build-release/build.ninja ] ||
  cmake -S . -B build-release -G Ninja -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_CXX_FLAGS_RELEASE="-O2 -DNDEBUG" -DVELLUMRY_BENCH=OFF >/dev/null
cmake --build build-release -j "$(nproc)" --target vellumry tomeview
sudo=""
mkdir -p "$prefix" 2>/dev/null || true
[ -w "$prefix" ] || sudo="sudo"
$sudo cmake --install build-release --prefix "$prefix"
if command -v update-desktop-database >/dev/null; then
  $sudo update-desktop-database -q "$prefix/share/applications" || true
fi
if command -v gtk-update-icon-cache >/dev/null; then
  $sudo gtk-update-icon-cache -q -t "$prefix/share/icons/hicolor" || true
fi
echo "installed under $prefix: vellumry [FOLDER|PICTURE]"
