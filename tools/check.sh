#!/bin/sh
# SPDX-License-Identifier: MIT
# Holds the code to its habits: architecture (always), formatting and lint (unless called with --architecture; they
# need clang-format, clang-tidy, mingw, and dev and both programs for Windows built). Prints what is wrong; exits 1
# when anything is, or when a tool is missing.
set -u
cd "$(dirname "$0")/.."
failed=0
complain() {
  [ -z "$2" ] && return
  printf '%s\n%s\n\n' "$1" "$2"
  failed=1
}
core="src/base src/forms src/game src/themes src/highscores src/ui src/startup src/platform/*.h src/platform/*.cpp"

# shellcheck disable=SC2086  # a list of paths
complain "The core knows no toolkit and no system:" \
  "$(grep -rnE '#include <(Q[A-Z]|windows|X11|unistd|sys/|fcntl)|#include "platform/(qt|win32|web|headless|posix)/' $core)"
# shellcheck disable=SC2086
complain "No platform #ifdef outside the front ends:" "$(grep -rnE '^ *# *if(def)?.*(_WIN32|__linux__|__unix__)' $core)"
complain "Windows is known to its own front end only:" \
  "$(grep -rnE '#include <windows' src bench | grep -v '^src/platform/win32/')"
complain "No extern variable, no mutable global:" \
  "$(grep -rnE '^(extern|static|inline) [^(]*(;|=)' --include=*.h --include=*.cpp src bench tests fuzz | grep -v constexpr)"
complain "Every source file begins with its licence and what it is for:" \
  "$(find src bench tests fuzz -name '*.h' -o -name '*.cpp' | while read -r file; do
    head -n 2 "$file" | grep -c '^// ' | grep -q 2 || echo "$file"; done)"
complain "No include cycle:" \
  "$(cd src && grep -rnoE '^#include "[^"]+"' --include=*.h . | sed -E 's|^\./([^:]+):[0-9]+:#include "([^"]+)"|\1 \2|' |
    tsort 2>&1 >/dev/null)"

if [ "${1-}" != --architecture ]; then
  mingw=x86_64-w64-mingw32-g++-win32
  for tool in clang-format clang-tidy $mingw; do
    command -v $tool >/dev/null || complain "A tool is missing (./test.sh installs it):" "$tool"
  done
  for preset in lint windows-x86_64; do
    report=$(cmake --preset $preset 2>&1) || complain "The preset $preset cannot be configured:" "$report"
  done
  # shellcheck disable=SC2046  # file names without blanks
  complain "Not formatted (clang-format -i mends it):" \
    "$(clang-format --dry-run $(git ls-files '*.h' '*.cpp') 2>&1 | grep -oE '^[^:]+:[0-9]+' | sort -u)"
  # lint BUILD FILTER FRONT-END [ARGUMENT...]: what clang-tidy finds in those sources, a few files at a time on every
  # processor.
  lint() {
    build=build/$1
    filter=$2
    folders="^src/platform/($3)/"
    shift 3
    git ls-files 'src/*.cpp' | grep $filter "$folders" |
      xargs -P "$(nproc)" -n 3 clang-tidy --quiet -p "$build" "$@" 2>/dev/null |
      grep -E '(warning|error):' | sort -u
  }
  complain "Lint:" "$(lint lint -vE 'win32|web')"
  headers=$($mingw -print-file-name=include/c++)
  complain "Lint of the front end for Windows:" "$(lint windows-x86_64 -E win32 \
    --extra-arg=--target=x86_64-w64-windows-gnu \
    --extra-arg=-stdlib++-isystem"$headers" --extra-arg=-stdlib++-isystem"$headers/x86_64-w64-mingw32")"
  emscripten=/usr/share/emscripten/cache/sysroot
  if [ -e build/web-objects/compile_commands.json ] && [ -e $emscripten ]; then
    complain "Lint of the front end for browsers:" "$(lint web-objects -E web \
      --extra-arg=--target=wasm32-unknown-emscripten --extra-arg=--sysroot=$emscripten \
      --extra-arg=-isystem$emscripten/include/c++/v1 --extra-arg=-isystem$emscripten/include/compat)"
  fi
  complain "Built without a protection that cmake/hardening.cmake asks for:" "$(
    # expect FILE WHAT COMMAND...: says so unless the command's output has WHAT (an extended regular expression).
    expect() {
      file=$1 what=$2
      shift 2
      "$@" "$file" 2>&1 | grep -qE "$what" || echo "$file: no $what"
    }
    for file in Sorvex sorvex-theme libsorvex-sounds.so; do
      file=build/dev/bin/$file
      expect "$file" 'Type: +DYN' readelf -hW
      expect "$file" GNU_RELRO readelf -lW
      expect "$file" 'FLAGS.*NOW' readelf -dW
      expect "$file" 'GNU_STACK.* RW ' readelf -lW
      expect "$file" __stack_chk_fail readelf --dyn-syms -W
      [ "${file##*.}" = so ] || expect "$file" '__[a-z]+_chk@' readelf --dyn-syms -W
      # The C library's own start code begins a few functions with it.
      [ "$(uname -m)" != x86_64 ] || [ "$(objdump -d "$file" | grep -c endbr64)" -gt 20 ] || echo "$file: no endbr64"
    done
    for file in windows-x86_64/bin/Sorvex.exe windows-x86_64/bin/sorvex-theme.exe windows-i686/bin/Sorvex.exe; do
      file=build/$file
      dump=${mingw%-g++*}-objdump
      case $file in *x86_64*) expect "$file" HIGH_ENTROPY_VA "$dump" -p ;; esac
      expect "$file" DYNAMIC_BASE "$dump" -p
      expect "$file" NX_COMPAT "$dump" -p
      expect "$file" '\.reloc' "$dump" -h
    done)"
fi
exit $failed
