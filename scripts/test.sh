#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test twice: a normal build and one under
# AddressSanitizer and UndefinedBehaviorSanitizer. The normal build's program is also driven on a
# virtual X screen under a window manager.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
export LSAN_OPTIONS=suppressions=$PWD/scripts/lsan.supp
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1

bash scripts/build.sh build
# Every test ends: a unit test within 300 s (set where it is declared), any other within 1500.
(cd build && ctest --output-on-failure --timeout 1500 -j "$(nproc)")
bash scripts/screen-test.sh build

bash scripts/build.sh build-asan -DVELLUMRY_SANITIZE=ON -DVELLUMRY_BENCH=OFF
(cd build-asan && ctest --output-on-failure --timeout 1500 -j "$(nproc)")
