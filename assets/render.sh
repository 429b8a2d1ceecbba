#!/bin/sh
# Redraws the program's built-in pictures from the drawings in sources/.
# Needs rsvg-convert, convert (ImageMagick 6) and icotool (icoutils).
set -eu
LC_ALL=C; export LC_ALL
out=$(cd "$(dirname "$0")" && pwd)
src=$out/sources
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT INT TERM

# flat NAME COLOURS: a drawing as a PNG with hard edges and at most COLOURS
# colours. A pixel is opaque when at least half covered and keeps the drawing's
# own colour; transparent pixels are black, as icons want them, and black is
# always one of the colours.
flat() {
    rsvg-convert "$src/$1.svg" -o "$tmp/r.png"
    convert "$tmp/r.png" -alpha extract -threshold 49.9% "$tmp/a.png"
    # only the visible pixels choose the palette
    convert "$tmp/r.png" -channel A -threshold 49.9% +channel "$tmp/v.png"
    convert "$tmp/v.png" -background white -alpha background +dither -colors "$2" -alpha off "$tmp/q.png"
    convert -size "$(identify -format '%wx%h' "$tmp/r.png")" xc:black "$tmp/q.png" "$tmp/a.png" -composite \
        \( "$tmp/a.png" -alpha off \) -alpha off -compose CopyOpacity -composite -depth 8 "PNG32:$tmp/$1-$2.png"
}

for f in window32 window16 about32 about16 folder48 folder32 folder16 hand_link hand_info; do flat "$f" 15; done
for f in folder48 folder32 folder16; do flat "$f" 200; done
icotool -c -o "$out/window.ico" "$tmp/window32-15.png" "$tmp/window16-15.png"
icotool -c -o "$out/about.ico" "$tmp/about32-15.png" "$tmp/about16-15.png"
icotool -c -o "$out/folder.ico" "$tmp/folder32-15.png" "$tmp/folder16-15.png" "$tmp/folder48-15.png" \
    "$tmp/folder32-200.png" "$tmp/folder16-200.png" "$tmp/folder48-200.png"
icotool -c --cursor -X 15 -Y 4 -o "$out/hand_info.cur" "$tmp/hand_info-15.png"
icotool -c --cursor -X 12 -Y 1 -o "$out/hand_link.cur" "$tmp/hand_link-15.png"

# the panel's and the welcome picture: baseline JPEG, three full-size components
for f in highscores canvas; do
    rsvg-convert "$src/$f.svg" -o "$tmp/$f.png"
    convert "$tmp/$f.png" -background white -alpha remove -alpha off -strip -type TrueColor \
        -sampling-factor 4:4:4 -interlace none -quality 92 "$out/$f.jpg"
done

# the logo stands on pure yellow: its rim is mixed with that yellow, and what
# lies outside is transparent
rsvg-convert "$src/logo.svg" -o "$tmp/logo.png"
convert "$tmp/logo.png" -alpha extract -threshold 12% "$tmp/la.png"
convert "$tmp/logo.png" -background '#ffff00' -alpha remove -alpha off +dither -colors 120 \
    \( "$tmp/la.png" -alpha off \) -alpha off -compose CopyOpacity -composite -strip "$out/logo.gif"
