#!/usr/bin/env bash
# install-deps.sh [PACKAGE...]: installs the Debian packages the build, the tests and the
# screenshots need, and any named, when missing. Runs as root without questions; does nothing
# when everything is there.
set -euo pipefail
packages=(
  cmake ninja-build g++ clang pkg-config
  qt6-base-dev libgl-dev
  libjpeg62-turbo-dev libpng-dev libtiff-dev libgif-dev
  googletest libgtest-dev libgmock-dev libbenchmark-dev
  xvfb xauth x11-apps openbox xdotool x11-utils
  desktop-file-utils appstream
  "$@"
)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "installing: ${missing[*]}"
  sudo=""; [ "$(id -u)" -eq 0 ] || sudo="sudo"
  export DEBIAN_FRONTEND=noninteractive
  $sudo apt-get update -qq
  $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
fi
