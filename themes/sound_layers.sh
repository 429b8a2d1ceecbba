# SPDX-License-Identifier: MIT
# Sourced by the sounds.sh of a theme's art folder: builds sounds from layers with sox, beside that script.
# Every random source is seeded the same way (-R), so the files repeat exactly.
set -eu
LC_ALL=C; export LC_ALL
out=$(cd "$(dirname "$0")" && pwd)
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT INT TERM

# layer NAME EFFECT...: one layer on its own
layer() {
    l=$1; shift
    sox -R -D -n -r 44100 -c 1 -b 32 -e floating-point "$tmp/$l.wav" "$@"
}
# finish FILE SECONDS LAYER...: mix, clean, trim, fade both ends, peak at -3 dB
finish() {
    f=$1; secs=$2; shift 2
    for l in "$@"; do set -- "$@" "$tmp/$l.wav"; shift; done
    sox -R -D -m "$@" -b 16 -e signed-integer "$out/$f" \
        gain -9 highpass 70 trim 0 "$secs" fade h 0.002 "$secs" 0.02 gain -n -3
}
