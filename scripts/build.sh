#!/usr/bin/env bash
# build.sh DIR [cmake options...]: configures (once) and builds the project with Ninja in DIR.
set -euo pipefail
cd "$(dirname "$0")/.."
dir=$1; shift
[ -f "$dir/build.ninja" ] || cmake -S . -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@" >/dev/null
cmake --build "$dir" -j "$(nproc)"
