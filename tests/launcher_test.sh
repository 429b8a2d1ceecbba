#!/bin/bash
# SPDX-License-Identifier: MIT
# launcher_test.sh LAUNCHER: starts small packages of several versions through the launcher, as a user without rights, and
# looks at what becomes of the player's files. SORVEX_SEED chooses the moments at which starts are killed.
set -euo pipefail
work=$(mktemp -d)
# shellcheck disable=SC2317  # called at the end
clean_up() {
  umount "$work"/*.mount 2>/dev/null || true
  rm -rf "$work"
}
trap clean_up EXIT
RANDOM=${SORVEX_SEED:=$RANDOM}
story=none
fail() {
  echo "$story (SORVEX_SEED=$SORVEX_SEED): $*" >&2
  exit 1
}
launcher=$(realpath "$1")
cd "$work"
chmod 755 .
without_rights=()
if [ "$(id -u)" = 0 ]; then without_rights=(setpriv --reuid 65534 --regid 65534 --clear-groups); fi

# package VERSION THEME...: each file of its themes says which version it is of.
package() {
  local version=$1 folder=$1/lib/sorvex file theme
  mkdir -p "$version/games" "$folder/game"
  install "$launcher" "$version/games/sorvex"
  shift
  printf '#!/bin/sh\necho "%s in ${0%%/*}"\n' "$version" >"$folder/game/Sorvex"
  chmod 755 "$folder/game/Sorvex"
  for theme in "$@"; do
    mkdir "$folder/game/$theme"
    for file in Theme.ini bg.bmp LetGo.wav; do echo "$version $theme" >"$folder/game/$theme/$file"; done
    echo nobody >"$folder/game/$theme/HighScores.ini"
  done
  (cd "$folder/game" && find . -type f -printf '%P\n' | sort | xargs sha256sum) >"$folder/manifest"
}
package v1 Theme1 Cabinet Lagoon Old
echo "a picture" >v1/lib/sorvex/game/Theme1/dropped.bmp
(cd v1/lib/sorvex/game && sha256sum Theme1/dropped.bmp) >>v1/lib/sorvex/manifest
package v2 Theme1 Cabinet Lagoon New
chmod -R a-w v2

# start VERSION [ARGUMENT...]: what the player sees; the home of the story is $home.
start() { "${without_rights[@]}" env -i PATH="$PATH" HOME="$home" "$work/$1/games/sorvex" "${@:2}" 2>&1; }
game() { echo "$home/.local/share/sorvex/game/$1"; }
# in_background COMMAND...: as a process group, whose id is $!.
in_background() {
  set -m
  "$@" &
  set +m
}
as_player() { "${without_rights[@]}" env -C "$(game .)" sh -c "$1"; }
new_player() {
  story=$1
  home=$work/$1
  mkdir "$home"
  if [ "$(id -u)" = 0 ]; then chown 65534:65534 "$home"; fi
}
# expect FILE TEXT...
expect() { [ "$(cat "$(game "$1")" 2>&1)" = "${*:2}" ] || fail "$1 has '$(cat "$(game "$1")" 2>&1)' instead of '${*:2}'"; }
expect_start() { [ "$(start "$1")" = "$1 in $home/.local/share/sorvex/game" ] || fail "$1 says $(start "$1")"; }
# expect_refusal VERSION REASON: one message that names folder and reason.
expect_refusal() {
  local said status=0
  said=$(start "$1") || status=$?
  [[ $status = 1 && $said = "sorvex: "*"$home/.local/share/sorvex"*"$2"* && $(wc -l <<<"$said") = 1 ]] ||
    fail "$2 is reported as '$said', $status"
}

new_player "other player"
expect_start v1
new_player "upgrades and downgrades"
expect_start v1
as_player 'echo mine >Theme1/HighScores.ini; echo mine >Cabinet/bg.bmp; rm Cabinet/LetGo.wav; rm -r Lagoon
  mkdir Own; echo mine >Own/Theme.ini'
for version in v2 v1 v2; do
  expect_start "$version"
  expect Theme1/HighScores.ini mine
  expect Theme1/bg.bmp $version Theme1
  expect Cabinet/bg.bmp mine
  expect Cabinet/Theme.ini v1 Cabinet
  [ ! -e "$(game Cabinet/LetGo.wav)" ] || fail "a removed sound came back"
  [ ! -e "$(game Lagoon)" ] || fail "a removed theme came back"
  expect Old/bg.bmp v1 Old
  [ $version = v2 ] || expect Theme1/dropped.bmp a picture
  [ $version = v1 ] || [ ! -e "$(game Theme1/dropped.bmp)" ] || fail "a dropped file stays"
  expect Own/Theme.ini mine
  as_player '[ ! -e New ] || echo mine >New/HighScores.ini'
done
expect New/HighScores.ini mine
home="$work/other player"
expect Theme1/HighScores.ini nobody
expect Theme1/bg.bmp v1 Theme1

new_player "a theme of the player's own name"
expect_start v1
as_player 'mkdir New; echo mine >New/Theme.ini'
expect_start v2
[ "$(ls "$(game New)")" = "Theme.ini HighScores.ini" ] || [ "$(ls "$(game New)")" = Theme.ini ] || fail "$(ls "$(game New)")"

new_player "killed starts"
expect_start v1
as_player 'echo mine >Theme1/HighScores.ini'
interrupted=0
for i in $(seq 30); do
  in_background start v$((i % 2 + 1)) >/dev/null
  sleep "0.$(printf %03d $((RANDOM % 200)))"
  kill -KILL -- -$! 2>/dev/null || true
  wait $! 2>/dev/null || true
  if [ -e "$(game ../to-do)" ]; then interrupted=$((interrupted + 1)); fi
done
[ $interrupted -gt 0 ] || fail "no start was killed in an upgrade"
for version in v2 v1; do
  expect_start $version
  for file in Theme1/bg.bmp Cabinet/LetGo.wav Lagoon/Theme.ini; do expect $file $version "${file%/*}"; done
  expect Theme1/HighScores.ini mine
done

new_player "starts at once"
for i in $(seq 8); do start v$((i % 2 + 1)) >"$work/said$i" & done
wait
for i in $(seq 8); do grep -q " in $home/" "$work/said$i" || fail "$(cat "$work/said$i")"; done
expect_start v2
expect Cabinet/bg.bmp v2 Cabinet

new_player "an upgrade while the game runs"
cp -r v1 running
cp "$(command -v sleep)" running/lib/sorvex/game/Sorvex
sed -i "s/.*  Sorvex/$(sha256sum <running/lib/sorvex/game/Sorvex | cut -c -64)  Sorvex/" running/lib/sorvex/manifest
sed -i 's|^exec.*game/Sorvex"|& 60|' running/games/sorvex
in_background start running
until pgrep -g $! -x Sorvex >/dev/null; do sleep 0.1; done
expect_start v2
pkill -g $! -x Sorvex || fail "the game ended"
wait $! || true

new_player "a removed package"
expect_start v1
as_player 'echo mine >Theme1/HighScores.ini'
mv v1 removed
expect Theme1/HighScores.ini mine
mv removed v1
expect_start v1
expect Theme1/HighScores.ini mine

new_player "no home"
home=$work/nowhere/home
expect_refusal v1 denied
if [ "$(id -u)" = 0 ]; then
  for story in "size=512k" "ro" "noexec"; do
    home=$work/$story.mount
    mkdir "$home"
    mount -t tmpfs -o "mode=777,$story" none "$home"
    case $story in
      ro) expect_refusal v1 "Read-only" ;;
      noexec) expect_refusal v1 "may not be run" ;;
      *)
        expect_start v1
        head -c 999999 /dev/zero >"$home/filling" 2>/dev/null || true
        expect_refusal v1 "No space"
        truncate -s -24K "$home/filling"  # enough for a time, but not for new themes
        expect_refusal v2 "No space"
        expect Cabinet/bg.bmp v1 Cabinet
        rm "$home/filling"
        expect_start v2
        expect Cabinet/bg.bmp v2 Cabinet
        ;;
    esac
  done
fi

new_player "options"
[[ $(start v1 --version) = "Sorvex "[0-9]*.[0-9]*.[0-9]* ]] || fail "$(start v1 --version)"
[[ $(start v1 --help) = "usage: sorvex "* ]] || fail "$(start v1 --help)"
[ ! -e "$home/.local" ] || fail "a question makes a folder"
[ "$(start v1 --folder)" = "$(game '')" ] || [ "$(start v1 --folder)/" = "$(game '')" ] || fail "$(start v1 --folder)"
status=0
start v1 --wrong >/dev/null || status=$?
[ $status = 2 ] || fail "wrong usage ends with $status"
