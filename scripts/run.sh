#!/usr/bin/env bash
# Installs what is missing, builds, and starts the program on FOLDER, or on the bundled sample
# folder when no folder is given.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
bash scripts/build.sh build
if [ -x build/src/app/vellumry ]; then
  exec build/src/app/vellumry "${1:-$PWD/assets/samples}"
fi
echo "The program's window is not built yet; build/src/app/vellumry-drive runs it headless."
