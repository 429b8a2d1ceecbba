#!/bin/sh
# SPDX-License-Identifier: MIT
# Builds all packages into build/packages/, with their checksums: docs/installing.md. The same sources give the same bytes,
# wherever and whenever they are built, whatever options were set there before; packaging/reproduce.sh checks it. The dates
# inside are those of the last commit, or SOURCE_DATE_EPOCH.
set -eu
cd "$(dirname "$0")/.."
. tools/packages.sh
# shellcheck disable=SC2086  # a list of words
need $play_packages $windows_packages $package_packages
: "${SOURCE_DATE_EPOCH:=$(git log -1 --format=%ct 2>/dev/null || stat -c %Y CHANGELOG.md)}"
export SOURCE_DATE_EPOCH TZ=UTC
umask 022
out=$PWD/build/packages
work=$out/work
rm -rf "$out"
mkdir -p "$work"

# dated FOLDER: all in it is from that one moment.
dated() { find "$1" -exec touch -h -d "@$SOURCE_DATE_EPOCH" {} +; }

cmake --fresh --preset release
cmake --build --preset release
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' build/CMakeCache.txt)
(cd build && cpack -B "$work/deb")
mv "$work"/deb/*.deb "$out"

name=sorvex-$version-linux-$(uname -m)
cmake --install build --strip --prefix "$work/$name"
packaging/linux/bring_qt.sh "$work/$name"
cmake -DFOLDER="$work/$name/lib/sorvex" -P cmake/manifest.cmake
ln -s games/sorvex "$work/$name/sorvex"
# Two threads or more give the same bytes on every machine.
tar -C "$work" --sort=name --owner=0 --group=0 --numeric-owner --mtime="@$SOURCE_DATE_EPOCH" -cf - "$name" |
  xz -T2 >"$out/$name.tar.xz"

for width in x86_64 i686; do
  cmake --fresh --preset windows-$width -DSORVEX_WERROR=ON
  cmake --build --preset windows-$width --target Sorvex sorvex-theme
  folder=$work/$width/Sorvex
  cmake --install build/windows-$width --prefix "$folder"
  dated "$folder"
  (cd "$work/$width" && find Sorvex | LC_ALL=C sort | zip -9qX@ "$out/sorvex-$version-windows-$width.zip")
  (cd "$folder" && for theme in */; do printf '!insertmacro Theme "%s"\r\n' "${theme%/}"; done) >"$work/themes.nsh"
  makensis -V2 -WX "-DVERSION=$version" "-DFOLDER=$folder" "-DTHEMES=$work/themes.nsh" \
    "-DTARGET=$([ $width = x86_64 ] && echo amd64 || echo x86)-unicode" \
    "-DOUT=$out/sorvex-$version-windows-$width-setup.exe" packaging/windows/sorvex.nsi
done

rm -r "$work"
(cd "$out" && sha256sum -- * >SHA256SUMS && cat SHA256SUMS)
