#!/bin/sh
# SPDX-License-Identifier: MIT
# bring_qt.sh PREFIX: puts what the game installed there needs of Qt and the libraries below it, down to the C library, into
# lib/sorvex/qt, with each one's licence, and makes the game use it. Everything is taken from this Debian system.
set -eu
cd "$1/lib/sorvex"
plugins=$(qtpaths6 --plugin-dir)
mkdir -p qt/lib qt/licences qt/fonts

# bring FILE TO: notes it.
bring() { printf '%s %s\n' "$(readlink -f "$1")" "$2/${1##*/}" >>to-bring; }

# Under Wayland Qt draws a window's title bar itself, and only with the last of these plugins, which takes the system's
# driver for EGL.
wayland="platforms/libqwayland-generic.so wayland-shell-integration/libxdg-shell.so
  wayland-decoration-client/libbradient.so wayland-graphics-integration-client/libqt-plugin-wayland-egl.so"
for plugin in $wayland platforms/libqxcb.so imageformats/libqgif.so imageformats/libqico.so imageformats/libqjpeg.so \
  platforminputcontexts/libcomposeplatforminputcontextplugin.so \
  platforminputcontexts/libibusplatforminputcontextplugin.so; do
  mkdir -p "qt/plugins/${plugin%/*}"
  bring "$plugins/$plugin" "qt/plugins/${plugin%/*}"
done
programs="game/Sorvex game/libsorvex-sounds.so tools/sorvex-message tools/sorvex-theme"
# shellcheck disable=SC2046,SC2086  # lists of words
ldd $programs $(cut -d ' ' -f 1 to-bring) | sed -n 's/.* => \(.*\) (.*/\1/p' | sort -u | while read -r library; do
  bring "$library" qt/lib
done
for font in truetype/liberation/LiberationSans-Regular.ttf truetype/liberation/LiberationSans-Bold.ttf \
  truetype/liberation/LiberationSans-Italic.ttf truetype/liberation/LiberationSans-BoldItalic.ttf \
  opentype/inter/Inter-Black.otf; do
  bring "/usr/share/fonts/$font" qt/fonts
done
# dpkg searches all packages' lists, so it is asked once. It may know a file by its name without /usr.
sed 's/ .*//; p; s,^/usr,,' to-bring | xargs -d '\n' dpkg -S 2>/dev/null | sed 's/:[^ ]*: / /; s/: / /; s, /usr/, /,' >packages ||
  true
while read -r file to; do
  package=$(awk -v file="${file#/usr}" '$2 == file { print $1; exit }' packages)
  # What is of the C library stays the system's.
  [ "$package" != libc6 ] || continue
  cp "$file" "$to"
  cp "/usr/share/doc/$package/copyright" "qt/licences/$package"
done <to-bring
# shellcheck disable=SC2016  # the dollar is dpkg's
(cd qt/licences && dpkg-query -W -f '${source:Package} ${source:Version}\n' -- *) | sort -u >qt/sources
rm to-bring packages

chmod 644 qt/lib/*
patchelf --set-rpath '$ORIGIN' qt/lib/*
patchelf --set-rpath '$ORIGIN/../../lib' qt/plugins/*/*.so
patchelf --set-rpath '$ORIGIN:$ORIGIN/../qt/lib' game/Sorvex game/libsorvex-sounds.so
patchelf --set-rpath '$ORIGIN/../qt/lib' tools/*
for folder in game tools; do printf '[Paths]\nPrefix = ../qt\n' >"$folder/qt.conf"; done
cat >qt/fonts.conf <<'CONFIGURATION'
<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <include ignore_missing="yes">/etc/fonts/fonts.conf</include>
  <dir prefix="relative">fonts</dir>
  <cachedir prefix="xdg">fontconfig</cachedir>
</fontconfig>
CONFIGURATION
cat >qt/README <<'TEXT'
Debian's packages of Qt and the libraries below it, changed only in where they look for each other. Licences: licences/;
sources: the packages and versions in the file sources, at https://snapshot.debian.org/. Other builds of the same libraries
can replace these.
TEXT
