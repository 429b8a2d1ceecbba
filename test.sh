#!/bin/sh
# SPDX-License-Identifier: MIT
# Installs what is missing, builds everything and runs every test, the core's also under the sanitizers.
set -eu
cd "$(dirname "$0")"
. tools/packages.sh
# shellcheck disable=SC2086  # a list of words
need $play_packages $test_packages
cmake --preset dev
cmake --build --preset dev
ctest --preset dev
cmake --preset asan
cmake --build --preset asan --target sorvex-core-tests
ctest --preset asan
