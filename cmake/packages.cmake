# SPDX-License-Identifier: MIT
# The Debian package, which `cpack` makes; packaging/build.sh makes all packages.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME sorvex)
set(CPACK_PACKAGE_VERSION ${SORVEX_VERSION})
set(CPACK_PACKAGE_CONTACT "${SORVEX_MAINTAINER}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE https://sorvex.example/)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-liberation, fonts-inter, qt6-wayland, xdg-utils")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "test how accurate you are with the mouse")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Drag each item out of its container without touching the walls and drop it
on the target, against the clock. An item that touches its container slides
back.

Four themes leave less and less room, and every theme keeps its own ten best
times. The command sorvex-theme makes themes of one's own from ordinary
pictures and proves that they can be won.")
include(CPack)
