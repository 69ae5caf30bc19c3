#!/usr/bin/env bash
# Builds the project and runs every benchmark; the figures go to standard output.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
bash scripts/build.sh build
export QT_QPA_PLATFORM=offscreen
for bench in decode_bench grid_ticks_bench repaint_bench viewer_bench gif_bench gif_draw_bench metafile_bench; do build/bench/$bench; done
build/bench/grid_fill
build/bench/picture_bombs
build/bench/scan_folder
