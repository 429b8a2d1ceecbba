#!/bin/sh
# SPDX-License-Identifier: MIT
# shipped_themes_test.sh THEMES SORVEX-THEME: every theme that ships is what its source makes, byte for byte.
set -eu
made=$(mktemp -d)
trap 'rm -rf "$made"' EXIT
for source in "$1"/*/art; do
  theme=$(dirname "$source")
  "$2" make "$source" -o "$made/theme" >/dev/null
  diff -r --exclude=art --exclude=HighScores.ini "$theme" "$made/theme"
  rm -r "$made/theme"
done
[ "$(ls -d "$1"/*/art | wc -l)" -ge 4 ]
