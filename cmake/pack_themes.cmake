# SPDX-License-Identifier: MIT
# Run by every build of the page: packs the theme folders of FROM into archives in TO, and lists them in themes.txt. The
# same files give the same archive.
file(MAKE_DIRECTORY "${TO}")
file(GLOB themes RELATIVE "${FROM}" "${FROM}/*/Theme.ini")
set(names "")
foreach(file IN LISTS themes)
  get_filename_component(theme "${file}" DIRECTORY)
  string(APPEND names "${theme}\n")
  file(GLOB files RELATIVE "${FROM}" "${FROM}/${theme}/*.*")
  execute_process(COMMAND "${CMAKE_COMMAND}" -E tar cf "${TO}/${theme}.zip" --format=zip "--mtime=1980-01-01 00:00:00"
    ${files} WORKING_DIRECTORY "${FROM}" COMMAND_ERROR_IS_FATAL ANY)
endforeach()
file(WRITE "${TO}/themes.txt" "${names}")
