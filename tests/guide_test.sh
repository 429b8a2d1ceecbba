#!/bin/sh
# SPDX-License-Identifier: MIT
# guide_test.sh GUIDE SORVEX-THEME: runs the commands that the guide shows, lines that begin with "$ " in its code blocks,
# in a fresh folder. Each must succeed and print the lines that follow it there, no more and no fewer.
set -eu
guide=$(realpath "$1")
tool=$(realpath "$2")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
ln -s "$tool" sorvex-theme

# The commands, and what they print, as the guide has them.
awk '/^```/ { shown = 0; next } /^\$ / { shown = 1 } shown' "$guide" >expected
count=0
while IFS= read -r line; do
  case $line in
    '$ '*)
      count=$((count + 1))
      printf '%s\n' "$line"
      sh -c "${line#??}" 2>&1 </dev/null || echo "exit status $?"
      ;;
  esac
done <expected >printed
diff -u expected printed
[ "$count" -ge 5 ] || { echo "only $count commands found in $guide" >&2; exit 1; }
[ -s stars.png ] && [ -s ways.png ]
