# SPDX-License-Identifier: MIT
# What a Linux desktop and its packages expect of a program: menu entry, icons, metadata, manuals, changelog, licences. Dates
# are those of SOURCE_DATE_EPOCH, if it is set.
string(TIMESTAMP SORVEX_DATE "%Y-%m-%d" UTC)
string(TIMESTAMP SORVEX_DATE_RFC "%a, %d %b %Y %H:%M:%S +0000" UTC)
set(SORVEX_MAINTAINER "The Sorvex authors <hello@sorvex.example>")

set(share ${CMAKE_BINARY_DIR}/packaging/share)
# compressed(FROM TO): the file, with its variables replaced, as Debian compresses such files.
function(compressed from to)
  configure_file(${from} ${share}/${to} @ONLY)
  execute_process(COMMAND gzip -9nkf ${share}/${to} COMMAND_ERROR_IS_FATAL ANY)
  cmake_path(GET to PARENT_PATH folder)
  install(FILES ${share}/${to}.gz DESTINATION share/${folder})
endfunction()
compressed(packaging/linux/sorvex.6.in man/man6/sorvex.6)
compressed(packaging/linux/sorvex-theme.1.in man/man1/sorvex-theme.1)
compressed(packaging/linux/changelog.in doc/sorvex/changelog)
compressed(CHANGELOG.md doc/sorvex/NEWS.md)
install(FILES packaging/linux/copyright DESTINATION share/doc/sorvex)

configure_file(packaging/linux/sorvex.metainfo.xml.in ${share}/example.sorvex.Sorvex.metainfo.xml @ONLY)
install(FILES ${share}/example.sorvex.Sorvex.metainfo.xml DESTINATION share/metainfo)
install(FILES packaging/linux/sorvex.desktop DESTINATION share/applications)
install(FILES packaging/icons/sorvex.svg DESTINATION share/icons/hicolor/scalable/apps)
foreach(size 16 24 32 48 64 128 256)
  install(FILES packaging/icons/${size}.png DESTINATION share/icons/hicolor/${size}x${size}/apps RENAME sorvex.png)
endforeach()
