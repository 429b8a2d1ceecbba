#!/bin/sh
# Redraws every bitmap, sound and text file of this theme from the sources in
# this folder. Needs rsvg-convert, convert (ImageMagick 6) and sox.
# Usage: sh render.sh            writes into the folder above this one
#        sh render.sh pictures   only the bitmaps and positions
#        sh render.sh sounds     only the sounds
set -eu
LC_ALL=C; export LC_ALL
art=$(cd "$(dirname "$0")" && pwd)
out=$(dirname "$art")
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT INT TERM
what=${1:-all}
crlf() { awk '{ printf "%s\r\n", $0 }'; }

# shape SOURCE PICTURE MASK: a drawing becomes a picture on white and a black
# mask. A pixel belongs to the shape when it is at least half covered; it then
# takes the drawing's own colour, unmixed, so no edge shows a pale or dark rim.
shape() {
    rsvg-convert "$art/$1" -o "$tmp/s.png"
    convert "$tmp/s.png" -alpha extract -threshold 49.9% "$tmp/a.png"
    convert "$tmp/s.png" -alpha off "$tmp/rgb.png"
    convert -size "$(identify -format '%wx%h' "$tmp/s.png")" xc:white "$tmp/rgb.png" "$tmp/a.png" \
        -composite -depth 8 -type TrueColor "BMP3:$out/$2"
    convert "$tmp/a.png" -negate -depth 8 -type TrueColor "BMP3:$out/$3"
}

pictures() {
    rsvg-convert "$art/bg.svg" -o "$tmp/bg.png"
    convert "$tmp/bg.png" -alpha off -depth 8 -type TrueColor "BMP3:$out/bg.bmp"
    shape target.svg pS.bmp pM.bmp
    : > "$tmp/theme"
    while read -r n x bottom; do
        case $n in
        target)
            h=$(identify -format %h "$out/pS.bmp")
            printf '%d\n%d\n' "$x" $((bottom - h)) | crlf > "$out/Theme2.ini" ;;
        *)
            shape "item$n.svg" "ss$n.bmp" "sm$n.bmp"
            shape "cont$n.svg" "cs$n.bmp" "cm$n.bmp"
            ih=$(identify -format %h "$out/ss$n.bmp")
            ch=$(identify -format %h "$out/cs$n.bmp")
            # an item starts where it comes to rest: 5 pixels in from the
            # container's bottom left corner
            printf '%d\n%d\n%d\n%d\n' $((x + 5)) $((bottom - 5 - ih)) "$x" $((bottom - ch)) >> "$tmp/theme" ;;
        esac
    done < "$art/layout.txt"
    crlf < "$tmp/theme" > "$out/Theme.ini"
}

# shellcheck source=sounds.sh disable=SC1091
. "$art/sounds.sh"

case $what in
pictures) pictures ;;
sounds) sounds ;;
all) pictures; sounds ;;
*) echo "usage: sh render.sh [pictures|sounds]" >&2; exit 2 ;;
esac
