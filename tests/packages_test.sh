#!/bin/bash
# SPDX-License-Identifier: MIT
# packages_test.sh FOLDER: installs each package that packaging/build.sh made there as a player would, plays a game with a
# real pointer, upgrades and removes it: on a bare Debian without compiler and Qt, and under Wine. Needs root for the former.
set -euo pipefail
packages=$(realpath "$1")
here=$(dirname "$(realpath "$0")")
cd "$packages"
sha256sum --quiet -c SHA256SUMS
work=$(mktemp -d)
bare=$work/bare
clean_up() {
  [ $? = 0 ] || tail "$work/said" >&2 || true
  jobs -p | xargs -r kill 2>/dev/null || true
  umount "$bare/proc" 2>/dev/null || true
  rm -rf "$work"
}
trap clean_up EXIT
fail() {
  echo "$*" >&2
  import -window root "$packages/../packages-test.png" 2>/dev/null || true
  exit 1
}
# await COMMAND...: fails if it does not succeed in a minute.
await() {
  for _ in $(seq 600); do
    "$@" >/dev/null 2>&1 && return
    sleep 0.1
  done
  fail "in vain: $*"
}

exec 3>"$work/display"  # where the screen says its number
Xvfb -displayfd 3 -screen 0 1280x1000x24 -nolisten tcp 2>/dev/null &
await test -s "$work/display"
DISPLAY=:$(cat "$work/display")
export DISPLAY
openbox 2>/dev/null &

# window TITLE: its id.
window() { xdotool search --onlyvisible --name "^$1$" | tail -n 1 | grep .; }
# play_theme1 FOLDER NAME: plays the theme in that folder's window and enters the name.
play_theme1() {
  local atX atY left top x y
  await window "Sorvex - Theme1"
  eval "$(xdotool getwindowgeometry --shell "$(window "Sorvex - Theme1")" | grep -E '^[XY]=' | sed 's/^/at/')"
  # The play field is 10 pixels inside the window; the button Start is below it.
  left=$((atX + 10)) top=$((atY + 10))
  xdotool mousemove $((atX + 100)) $((atY + 270)) click 1
  sleep 1
  # A busy machine may join movements, and an item touch its wall: it gets another try.
  for _ in 1 2 3; do
    [ "$(xdotool getactivewindow)" = "$(window "Sorvex - Theme1")" ] || break
    while read -r x && read -r y && read -r _ && read -r _; do
      x=$((left + x + 17)) y=$((top + y + 17))
      xdotool mousemove $x $y sleep 0.2 mousedown 1
      for _ in 1 2 3 4 5 6 7 8; do
        y=$((y - 7))
        xdotool mousemove $x $y sleep 0.03
      done
      xdotool mousemove $((left + 160)) $y sleep 0.1 mousemove $((left + 160)) $((top + 196)) sleep 0.2 mouseup 1 sleep 0.2
    done < <(tr -d '\r' <"$1/Theme.ini"; echo)
  done
  for _ in 1 2 3; do  # the result, the name, and whatever else asks for OK
    sleep 0.5
    [ "$(xdotool getactivewindow)" != "$(window "Sorvex - Theme1")" ] || break
    xdotool type "$2"
    xdotool key Return
  done
  await grep -q "$2" "$1/HighScores.ini"
}

echo "Debian's and the desktop's own checks"
dpkg-deb -x sorvex_*.deb "$work/deb"
[ -z "$(lintian --allow-root sorvex_*.deb 2>&1 | tee "$work/lintian")" ] || fail "$(cat "$work/lintian")"
desktop-file-validate "$work/deb/usr/share/applications/sorvex.desktop"
appstreamcli validate --no-net "$work"/deb/usr/share/metainfo/*.xml >"$work/appstream" || fail "$(cat "$work/appstream")"

echo "A bare Debian"
"$here/bare_debian.sh" "$packages/../bare-debian.tar"
mkdir "$bare"
tar -C "$bare" -xf "$packages/../bare-debian.tar"
mount -t proc proc "$bare/proc"
cp /etc/resolv.conf "$bare/etc/" 2>/dev/null || true
# player NAME COMMAND...: as a user without rights, whose home is /home/NAME.
player() {
  install -d -o 65534 -g 65534 "$bare/home/$1"
  chroot --userspec=65534:65534 --groups= "$bare" env -i HOME="/home/$1" DISPLAY="$DISPLAY" \
    PATH=/usr/bin:/bin:/usr/games "${@:2}" >"$work/said" 2>&1
}
# story NAME COMMAND...: starts, plays a game, ends.
story() {
  player "$@" &
  local program=$!
  play_theme1 "$bare/home/$1/.local/share/sorvex/game/Theme1" "$1"
  [ "$(xprop -id "$(window "Sorvex - Theme1")" WM_CLASS)" = 'WM_CLASS(STRING) = "Sorvex", "Sorvex"' ] || fail "window class"
  xdotool key alt+F4
  wait $program
}

echo "The tarball, without Qt"
tar -C "$bare/opt" -xf sorvex-*-linux-*.tar.xz
story tarball sh -c 'exec /opt/sorvex-*/sorvex'
player tarball sh -c '/opt/sorvex-*/games/sorvex-theme check /opt/sorvex-*/lib/sorvex/game/Lagoon' || fail "$(cat "$work/said")"

echo "The tarball under Wayland, where there is a driver for EGL"
mkdir -m 700 "$work/home" "$work/wayland"
wayland() { env -i PATH="$PATH" HOME="$work/home" XDG_RUNTIME_DIR="$work/wayland" WAYLAND_DISPLAY=it "$@"; }
wayland weston --backend=headless-backend.so --socket=it >"$work/weston" 2>&1 &
weston=$!
await test -S "$work/wayland/it"
wayland WAYLAND_DEBUG=1 timeout 5 "$bare"/opt/sorvex-*/sorvex >"$work/said" 2>&1 || [ $? = 124 ] || fail "it does not start"
kill $weston
grep -q 'set_app_id("sorvex")' "$work/said" || fail "the desktop does not know whose window this is"
# The play field and the buttons are 298 pixels high.
[ "$(sed -n 's/.*set_window_geometry(.*, \([0-9]*\)).*/\1/p' "$work/said" | tail -n 1)" -gt 310 ] || fail "no title bar"

echo "The Debian package"
# in_debian COMMAND...
in_debian() { chroot "$bare" env DEBIAN_FRONTEND=noninteractive "$@" >"$work/apt" 2>&1 || fail "$(tail "$work/apt")"; }
cp sorvex_*.deb "$bare/tmp/first.deb"
dpkg-deb -R sorvex_*.deb "$work/newer"
sed -i 's/^Version: .*/Version: 99/' "$work/newer/DEBIAN/control"
echo newer >"$work/newer/usr/lib/sorvex/game/Lagoon/LetGo.wav"
(cd "$work/newer/usr/lib/sorvex/game" && find . -type f -printf '%P\n' | xargs sha256sum >../manifest)
dpkg-deb --root-owner-group -b "$work/newer" "$bare/tmp/newer.deb" >/dev/null
in_debian apt-get -q update
in_debian apt-get -qy install --no-install-recommends /tmp/first.deb
entry=$(sed -n '0,/^Exec=/s/^Exec=//p' "$bare/usr/share/applications/sorvex.desktop")
story debian sh -c "exec $entry"
in_debian dpkg -i /tmp/newer.deb
player debian sorvex --folder
theirs=$bare/home/debian/.local/share/sorvex/game
grep -q debian "$theirs/Theme1/HighScores.ini" || fail "the upgrade lost a time"
cmp -s "$theirs/Lagoon/LetGo.wav" "$work/newer/usr/lib/sorvex/game/Lagoon/LetGo.wav" || fail "the upgrade did not arrive"
in_debian dpkg -P sorvex
grep -q debian "$theirs/Theme1/HighScores.ini" || fail "the removal lost a time"

echo "Windows"
w() {
  env -i PATH="$PATH" HOME="$work/home" DISPLAY="$DISPLAY" WINEPREFIX="$work/wine" WINEDEBUG=-all \
    WINEDLLOVERRIDES=mscoree,mshtml= "$@" >>"$work/said" 2>&1
}
w wineboot -i
w wine sorvex-*-windows-x86_64-setup.exe /S
theirs=$(echo "$work"/wine/drive_c/users/*/AppData/Local/Programs/Sorvex)
w wine "$theirs/Sorvex.exe" &
program=$!
play_theme1 "$theirs/Theme1" windows
w wine sorvex-*-windows-x86_64-setup.exe /S && fail "the installer replaced a running program"
w wineserver -k
wait $program || true
echo mine >"$theirs/Cabinet/ThemeDetails.ini"
(mkdir "$work/files" && cd "$work/files" && cmake -E tar xf "$packages"/sorvex-*-windows-x86_64.zip)
echo newer >"$work/files/Sorvex/Lagoon/LetGo.wav"
find "$work/files" -exec touch -d "2 hours ago" {} +
(cd "$work/files/Sorvex" && for theme in */; do echo "!insertmacro Theme \"${theme%/}\""; done) >"$work/themes.nsh"
makensis -V1 -DVERSION=99.0.0 "-DFOLDER=$work/files/Sorvex" "-DTHEMES=$work/themes.nsh" -DTARGET=amd64-unicode \
  "-DOUT=$work/newer.exe" "$here/../packaging/windows/sorvex.nsi"
w wine "$work/newer.exe" /S
grep -q windows "$theirs/Theme1/HighScores.ini" || fail "the upgrade lost a time"
[ "$(cat "$theirs/Lagoon/LetGo.wav")" = newer ] || fail "the upgrade did not arrive"
[ "$(cat "$theirs/Cabinet/ThemeDetails.ini")" = mine ] || fail "the upgrade lost a change"
w wine "$theirs/uninstall.exe" /S
await test ! -e "$theirs/Sorvex.exe"
await test ! -e "$theirs/Lagoon"
grep -q windows "$theirs/Theme1/HighScores.ini" || fail "the removal lost a time"
w wineserver -k || true
