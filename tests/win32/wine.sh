#!/bin/sh
# SPDX-License-Identifier: MIT
# wine.sh PREFIX COMMAND [ARGUMENT...]: runs the command under Wine, sees nothing of this desktop or user, and leaves no
# process behind. Of the environment it takes along the folder of bitmaps that tests read, and their seed.
set -eu
prefix=$1
shift
mkdir -p "$prefix/home" "$prefix/tmp"
run() {
  env -i PATH="$PATH" LANG=C.UTF-8 HOME="$prefix/home" TMPDIR="$prefix/tmp" WINEPREFIX="$prefix" WINEDEBUG=-all \
    WINEDLLOVERRIDES=mscoree,mshtml= ${SORVEX_BITMAPS:+"SORVEX_BITMAPS=$SORVEX_BITMAPS"} \
    ${SORVEX_SEED:+"SORVEX_SEED=$SORVEX_SEED"} "$@"
}
status=0
run wine "$@" || status=$?
run wineserver -k || true
exit "$status"
