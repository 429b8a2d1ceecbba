#!/bin/sh
# SPDX-License-Identifier: MIT
# bring_qt.sh PREFIX: puts what the game installed there needs of Qt and the libraries below it, down to the C library, into
# lib/sorvex/qt, with each one's licence, and makes the game use it. Everything is taken from this Debian system.
set -eu
cd "$1/lib/sorvex"
plugins=$(qtpaths6 --plugin-dir)
mkdir -p qt/lib qt/licences qt/fonts

# package_of FILE: the Debian package that has it.
package_of() {
  real=$(readlink -f "$1")
  { dpkg -S "$real" 2>/dev/null || dpkg -S "${real#/usr}"; } | sed -n '1s/:.*//p'
}
# bring FILE TO: with its licence, unless it is of the C library, which stays the system's.
bring() {
  package=$(package_of "$1")
  [ "$package" != libc6 ] || return 0
  cp -L "$1" "$2"
  cp "/usr/share/doc/$package/copyright" "qt/licences/$package"
  # shellcheck disable=SC2016  # the dollar is dpkg's
  dpkg-query -W -f '${source:Package} ${source:Version}\n' "$package" >>qt/sources
}

for plugin in platforms/libqxcb.so platforms/libqwayland-generic.so wayland-shell-integration/libxdg-shell.so \
  wayland-decoration-client/libbradient.so imageformats/libqgif.so imageformats/libqico.so imageformats/libqjpeg.so \
  platforminputcontexts/libcomposeplatforminputcontextplugin.so \
  platforminputcontexts/libibusplatforminputcontextplugin.so; do
  mkdir -p "qt/plugins/${plugin%/*}"
  bring "$plugins/$plugin" "qt/plugins/$plugin"
done
programs="game/Sorvex game/libsorvex-sounds.so tools/sorvex-message tools/sorvex-theme"
# shellcheck disable=SC2086  # a list of words
ldd $programs qt/plugins/*/*.so | sed -n 's/.* => \(.*\) (.*/\1/p' | sort -u | while read -r library; do
  bring "$library" "qt/lib/${library##*/}"
done
for font in truetype/liberation/LiberationSans-Regular.ttf truetype/liberation/LiberationSans-Bold.ttf \
  truetype/liberation/LiberationSans-Italic.ttf truetype/liberation/LiberationSans-BoldItalic.ttf \
  opentype/inter/Inter-Black.otf; do
  bring "/usr/share/fonts/$font" qt/fonts
done
sort -u -o qt/sources qt/sources

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
