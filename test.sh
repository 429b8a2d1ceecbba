#!/bin/sh
# SPDX-License-Identifier: MIT
# Installs what is missing, builds everything, holds the code to its habits (tools/check.sh) and runs every test, those of
# Windows under Wine, those of the core and most in windows on Linux also under the sanitizers, the fuzzers for ten seconds
# each. The program for 32-bit Windows is only built: this Wine runs 64-bit programs. With --packages it builds the packages
# instead, installs each and plays.
set -eu
cd "$(dirname "$0")"
. tools/packages.sh
if [ "${1-}" = --packages ]; then
  # shellcheck disable=SC2086  # a list of words
  need $package_test_packages
  packaging/build.sh
  exec tests/packages_test.sh build/packages
fi
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
cmake --preset fuzz
cmake --build --preset fuzz
ctest --preset fuzz
