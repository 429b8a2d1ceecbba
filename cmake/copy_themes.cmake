# SPDX-License-Identifier: MIT
# Run by every build: copies the theme folders of FROM beside the executable in TO. A table of best times that is there
# already belongs to the player and stays.
file(GLOB themes RELATIVE "${FROM}" "${FROM}/*/Theme.ini")
foreach(file IN LISTS themes)
  get_filename_component(theme "${file}" DIRECTORY)
  file(COPY "${FROM}/${theme}" DESTINATION "${TO}" PATTERN art EXCLUDE PATTERN HighScores.ini EXCLUDE)
  if(EXISTS "${FROM}/${theme}/HighScores.ini" AND NOT EXISTS "${TO}/${theme}/HighScores.ini")
    file(COPY "${FROM}/${theme}/HighScores.ini" DESTINATION "${TO}/${theme}")
  endif()
endforeach()
