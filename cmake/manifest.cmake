# SPDX-License-Identifier: MIT
# Writes FOLDER/manifest: checksum and name of each file in FOLDER/game, as sha256sum does. The launcher tells by it which
# of a player's files the package put there.
file(GLOB_RECURSE files RELATIVE "${FOLDER}/game" "${FOLDER}/game/*")
set(lines)
foreach(file IN LISTS files)
  file(SHA256 "${FOLDER}/game/${file}" sum)
  string(APPEND lines "${sum}  ${file}\n")
endforeach()
file(WRITE "${FOLDER}/manifest" "${lines}")
