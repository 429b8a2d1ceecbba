#!/bin/sh
# SPDX-License-Identifier: MIT
# make_prefix.sh PREFIX: a fresh Wine prefix for tests. Its windows need no screen, its gray is that of Windows, and a
# crash ends the program instead of asking somebody.
set -eu
here=$(dirname "$0")
rm -rf "$1"
"$here/wine.sh" "$1" wineboot -i
cat >"$1/settings.reg" <<'SETTINGS'
REGEDIT4

[HKEY_CURRENT_USER\Software\Wine\Drivers]
"Graphics"="null"

[HKEY_CURRENT_USER\Software\Wine\WineDbg]
"ShowCrashDialog"=dword:00000000

[HKEY_CURRENT_USER\Control Panel\Colors]
"ButtonFace"="192 192 192"
SETTINGS
"$here/wine.sh" "$1" regedit /S "$1/settings.reg"
grep -q '"Graphics"="null"' "$1/user.reg"
