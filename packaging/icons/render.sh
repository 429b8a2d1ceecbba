#!/bin/sh
# SPDX-License-Identifier: MIT
# Draws the desktop's icons, PNG and ICO, anew; needs rsvg-convert and icotool. The two smallest have drawings of their
# own: the main window's.
set -eu
cd "$(dirname "$0")"
rsvg-convert ../../assets/sources/window16.svg -o 16.png
rsvg-convert ../../assets/sources/window32.svg -o 32.png
for size in 24 48 64 128 256; do rsvg-convert -w $size -h $size sorvex.svg -o $size.png; done
icotool -c -o sorvex.ico 16.png 24.png 32.png 48.png --raw=256.png
