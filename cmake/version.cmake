# SPDX-License-Identifier: MIT
# Reads the program's one version record: SORVEX_Title, SORVEX_Major and so on, and SORVEX_VERSION, major.minor.revision.
set(record_file ${CMAKE_CURRENT_LIST_DIR}/../src/platform/version.h)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${record_file})
file(READ ${record_file} record)
foreach(field Title Major Minor Revision Comments LegalCopyright)
  if(NOT record MATCHES "k${field}(\\[\\])? = \"?([^\";]+)\"?;")
    message(FATAL_ERROR "${record_file} has no k${field}")
  endif()
  set(SORVEX_${field} "${CMAKE_MATCH_2}")
endforeach()
set(SORVEX_VERSION ${SORVEX_Major}.${SORVEX_Minor}.${SORVEX_Revision})
