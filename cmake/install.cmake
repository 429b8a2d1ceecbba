# SPDX-License-Identifier: MIT
# Where `cmake --install` puts everything: docs/installing.md.
file(GLOB themes CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/themes/*/Theme.ini)
list(TRANSFORM themes REPLACE "/Theme.ini$" "")

if(WIN32)
  # One folder, which is the player's own.
  install(TARGETS Sorvex sorvex-theme RUNTIME DESTINATION .)
  install(DIRECTORY ${themes} DESTINATION . PATTERN art EXCLUDE)
  configure_file(LICENSE ${CMAKE_BINARY_DIR}/packaging/LICENSE.txt NEWLINE_STYLE CRLF)
  install(FILES ${CMAKE_BINARY_DIR}/packaging/LICENSE.txt DESTINATION .)
  return()
endif()

set(SORVEX_PRIVATE lib/sorvex)
set_target_properties(Sorvex sorvex-sounds PROPERTIES INSTALL_RPATH "$ORIGIN")
install(TARGETS Sorvex sorvex-sounds DESTINATION ${SORVEX_PRIVATE}/game)
install(TARGETS sorvex-theme sorvex-message DESTINATION ${SORVEX_PRIVATE}/tools)
install(DIRECTORY ${themes} DESTINATION ${SORVEX_PRIVATE}/game PATTERN art EXCLUDE)
install(CODE "set(FOLDER \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${SORVEX_PRIVATE}\")")
install(SCRIPT cmake/manifest.cmake)

configure_file(packaging/linux/sorvex.in packaging/sorvex @ONLY)
install(PROGRAMS ${CMAKE_BINARY_DIR}/packaging/sorvex DESTINATION games)
install(CODE "file(CREATE_LINK ../${SORVEX_PRIVATE}/tools/sorvex-theme
  \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/games/sorvex-theme\" SYMBOLIC)")

include(cmake/desktop_files.cmake)
include(cmake/packages.cmake)
