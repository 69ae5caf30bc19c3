#!/usr/bin/env bash
# Makes the stored pictures of the main window: the start button in its two looks, the exit
# button, the mark of a file to be deleted and the About panel's picture.
set -euo pipefail
cd "$(dirname "$0")"
convert -size 32x32 xc:none -fill '#2e9e4f' -draw 'circle 16,16 16,1' -fill white -draw 'polygon 12,9 24,16 12,23' start.png
convert -size 32x32 xc:none -fill '#8a8a8a' -draw 'circle 16,16 16,1' -fill '#e0e0e0' -draw 'polygon 12,9 24,16 12,23' start-passive.png
convert -size 32x32 xc:none -fill '#c0392b' -draw 'circle 16,16 16,1' -stroke white -strokewidth 3 -draw 'line 10,10 22,22' -draw 'line 22,10 10,22' exit.png
convert -size 250x250 xc:none -stroke '#e01010' -strokewidth 24 -draw 'line 30,30 220,220' -draw 'line 220,30 30,220' mark.gif
# The About panel's picture: a sheet of vellum with a small landscape on it, over a dusk blue.
convert -size 361x281 gradient:'#1a2a4a'-'#0a1020' \
  -fill '#e8dcc0' -stroke '#b8a880' -strokewidth 2 -draw 'roundrectangle 20,24 150,190 10,10' \
  -fill '#6a9ac8' -stroke none -draw 'rectangle 32,36 138,112' \
  -fill '#f0d060' -draw 'circle 114,56 114,66' \
  -fill '#3a6a3a' -draw 'polygon 32,112 62,74 88,104 108,86 138,112' \
  -fill '#8a7a5a' -draw 'rectangle 32,130 138,135' -draw 'rectangle 32,146 112,151' \
  -draw 'rectangle 32,162 126,167' -quality 90 about.jpg
