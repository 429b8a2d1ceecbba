# SPDX-License-Identifier: MIT
# Sourced by the scripts that need Debian packages: installs those that are missing, and says nothing when none is.

play_packages="g++ cmake ninja-build qt6-base-dev qt6-multimedia-dev libcli11-dev libtomlplusplus-dev librsvg2-dev
pkg-config fonts-liberation fonts-inter"
test_packages="bindfs clang clang-format clang-tidy libbenchmark-dev libclang-rt-14-dev libgtest-dev libx11-dev
libxtst-dev locales xvfb openbox xdotool x11-utils pulseaudio pulseaudio-utils dbus at-spi2-core libatspi2.0-dev
qt6-wayland weston wine wine64"
windows_packages="g++-mingw-w64-x86-64-win32 g++-mingw-w64-i686-win32"
web_packages="cmake ninja-build emscripten python3"
web_test_packages="chromium firefox-esr nodejs fonts-liberation fonts-inter"
# npm comes with some versions of nodejs.
command -v npm >/dev/null || web_test_packages="$web_test_packages npm"
package_packages="dpkg-dev fonts-liberation fonts-inter nsis patchelf qt6-wayland xz-utils zip"
package_test_packages="appstream desktop-file-utils imagemagick lintian mmdebstrap openbox weston wine wine64
x11-utils xdotool xvfb"
picture_packages="ffmpeg imagemagick openbox xdotool xvfb"

# need PACKAGE...: makes sure that these are installed.
need() {
  if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    echo "This system is not Debian. The build needs what these Debian packages hold:" >&2
    printf '  %s\n' "$@" >&2
    return 0
  fi
  missing=
  for package in "$@"; do
    status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null) || status=
    [ "$status" = installed ] || missing="$missing $package"
  done
  [ -n "$missing" ] || return 0
  as_root=
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "Missing:$missing" >&2
      echo "Install them as root, for example: apt-get install$missing" >&2
      exit 1
    fi
    as_root=sudo
  fi
  echo "Installing:$missing"
  # shellcheck disable=SC2086  # a list of words
  $as_root apt-get -qq update && $as_root env DEBIAN_FRONTEND=noninteractive \
    apt-get -qq install --yes --no-install-recommends $missing >/dev/null
}
