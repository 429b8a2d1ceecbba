#!/bin/sh
# SPDX-License-Identifier: MIT
# Builds the last commit again, later and in another folder, and fails unless each package has the same bytes as the one
# that packaging/build.sh left in build/packages/.
set -eu
cd "$(dirname "$0")/.."
first=$PWD/build/packages
elsewhere=$(mktemp -d)
trap 'rm -rf "$elsewhere"' EXIT
git clone -q . "$elsewhere/another folder"
"$elsewhere/another folder/packaging/build.sh" >"$elsewhere/said" 2>&1 || {
  tail -n 30 "$elsewhere/said" >&2
  exit 1
}
cd "$elsewhere/another folder/build/packages"
diff "$first/SHA256SUMS" SHA256SUMS
(cd "$first" && sha256sum -c SHA256SUMS)
