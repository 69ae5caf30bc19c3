#!/usr/bin/env bash
# Makes the stored pictures of the main window: the start button in its two looks, the exit
# button and the mark of a file to be deleted.
set -euo pipefail
cd "$(dirname "$0")"
convert -size 32x32 xc:none -fill '#2e9e4f' -draw 'circle 16,16 16,1' -fill white -draw 'polygon 12,9 24,16 12,23' start.png
convert -size 32x32 xc:none -fill '#8a8a8a' -draw 'circle 16,16 16,1' -fill '#e0e0e0' -draw 'polygon 12,9 24,16 12,23' start-passive.png
convert -size 32x32 xc:none -fill '#c0392b' -draw 'circle 16,16 16,1' -stroke white -strokewidth 3 -draw 'line 10,10 22,22' -draw 'line 22,10 10,22' exit.png
convert -size 250x250 xc:none -stroke '#e01010' -strokewidth 24 -draw 'line 30,30 220,220' -draw 'line 220,30 30,220' mark.gif
