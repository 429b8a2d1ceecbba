#!/bin/sh
# SPDX-License-Identifier: MIT
# Installs what is missing, builds the game into build/ and starts it. With --build-only it stops before the start.
set -eu
case "${1-}" in
  "" | --build-only) ;;
  *)
    echo "usage: ./run.sh [--build-only]" >&2
    exit 2
    ;;
esac
cd "$(dirname "$0")"
. tools/packages.sh
# shellcheck disable=SC2086  # a list of words
need $play_packages
[ -e build/bin/Sorvex ] || echo "Building Sorvex, which takes a minute or two the first time"
mkdir -p build
{ cmake --preset release && cmake --build --preset release; } >build/build.log 2>&1 || {
  cat build/build.log >&2
  exit 1
}
[ "${1-}" = --build-only ] || exec build/bin/Sorvex
