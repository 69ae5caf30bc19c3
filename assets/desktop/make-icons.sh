#!/usr/bin/env bash
# make-icons.sh: renders the application icon's PNG sizes from vellumry.svg (needs
# rsvg-convert). The PNGs are stored, so a build doesn't need the tool.
set -euo pipefail
cd "$(dirname "$0")"
for size in 48 128 256; do
  rsvg-convert -w "$size" -h "$size" vellumry.svg -o "vellumry-$size.png"
done
