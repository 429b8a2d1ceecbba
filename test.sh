#!/bin/sh
# SPDX-License-Identifier: MIT
# Installs what is missing, builds everything, holds the code to its habits (tools/check.sh) and runs every test, those of
# Windows under Wine, those of the core and most in windows on Linux also under the sanitizers, the fuzzers for ten seconds
# each. The program for 32-bit Windows is only built: this Wine runs 64-bit programs. With --web it builds only the page,
# and runs its tests in Chromium and Firefox; with --packages it builds the packages instead, installs each and plays.
set -eu
cd "$(dirname "$0")"
. tools/packages.sh
case "${1-}" in
  "") ;;
  --web)
    # shellcheck disable=SC2086  # a list of words
    need $web_packages $web_test_packages
    cmake --preset web -DSORVEX_WERROR=ON
    cmake --build --preset web
    npm --prefix tests/web ci --no-audit --no-fund
    exec npm --prefix tests/web test
    ;;
  --packages)
    # shellcheck disable=SC2086  # a list of words
    need $package_test_packages
    mkdir -p build
    tests/bare_debian.sh build/bare-debian.tar &
    packaging/build.sh
    wait $!
    exec tests/packages_test.sh build/packages
    ;;
  *)
    echo "usage: ./test.sh [--web | --packages]" >&2
    exit 2
    ;;
esac
# shellcheck disable=SC2086  # a list of words
need $play_packages $test_packages $windows_packages
cmake --preset windows-i686 -DSORVEX_WERROR=ON
cmake --build --preset windows-i686
cmake --preset windows-x86_64 -DSORVEX_WERROR=ON -DSORVEX_TESTS=ON
cmake --build --preset windows-x86_64
ctest --preset windows-x86_64
cmake --preset dev
cmake --build --preset dev
tools/check.sh
ctest --preset dev
cmake --preset asan
cmake --build --preset asan
ctest --preset asan
cmake --build --preset fuzz
ctest --preset fuzz
