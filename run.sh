#!/bin/sh
# SPDX-License-Identifier: MIT
# Installs what is missing, builds the game into build/ and starts it. With --build-only it stops before the start. With
# --web it builds the page instead, into build/web/, and serves it to this computer's browsers.
set -eu
case "${1-}" in
  "" | --build-only | --web) ;;
  *)
    echo "usage: ./run.sh [--build-only | --web]" >&2
    exit 2
    ;;
esac
cd "$(dirname "$0")"
. tools/packages.sh
preset=release packages=$play_packages program=build/bin/Sorvex log=build/build.log
[ "${1-}" != --web ] || preset=web packages=$web_packages program=build/web/sorvex.js log=build/build-web.log
# shellcheck disable=SC2086  # a list of words
need $packages
[ -e $program ] || echo "Building Sorvex, which takes a minute or two the first time"
mkdir -p build
{ cmake --preset $preset && cmake --build --preset $preset; } >$log 2>&1 || {
  cat $log >&2
  exit 1
}
case "${1-}" in
  "") exec $program ;;
  --web)
    echo "Sorvex is at http://127.0.0.1:${PORT:=8080}/ until you press Ctrl+C"
    exec python3 -m http.server --bind 127.0.0.1 --directory build/web "$PORT"
    ;;
esac
