#!/usr/bin/env bash
# Makes the bundled sample pictures from ImageMagick's built-in patterns and gradients.
set -euo pipefail
cd "$(dirname "$0")"
convert -size 800x600 gradient:'#1e3c72-#2a5298' -fill '#f7c948' -draw 'circle 400,300 400,120' dusk.jpg
convert -size 600x800 gradient:'#134e5e-#71b280' -fill '#ffffff80' -draw 'polygon 300,80 520,700 80,700' peak.jpg
convert -size 1024x640 plasma:'#ff9966-#ff5e62' -seed 7 plasma.jpg
convert -size 512x512 xc:none -fill '#e94057' -draw 'circle 256,256 256,40' -fill '#ffffffc0' -draw 'circle 200,200 200,140' bubble.png
convert -size 640x400 pattern:checkerboard -fill '#3949ab' -draw 'rectangle 80,80 560,320' board.png
convert -size 400x400 radial-gradient:'#fdfc47-#24fe41' sun.gif
convert -size 300x200 gradient:'#8e2de2-#4a00e0' -fill white -draw 'rectangle 40,40 260,160' -type truecolor frame.bmp
convert -size 720x480 gradient:'#ee9ca7-#ffdde1' -fill '#5c258d' -draw 'ellipse 360,240 250,120 0,360' -depth 8 -compress lzw oval.tif
convert -size 64x64 xc:none -fill '#00b4db' -draw 'roundrectangle 4,4 60,60 12,12' -define icon:auto-resize=64,32,16 tile.ico
convert -size 900x300 gradient:'#000000-#434343' -fill '#f8b500' -draw 'rectangle 0,140 900,160' horizon.png
