// SPDX-License-Identifier: MIT
// Text: UTF-8 inside the program; text files come in UTF-8 or in Windows-1252.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace sorvex {

/// A text file's bytes as UTF-8: a UTF-8 mark at the start is dropped; bytes that are not valid UTF-8 are taken as
/// Windows-1252.
std::string DecodeText(std::string_view bytes);

bool IsValidUtf8(std::string_view text);

/// How many UTF-16 code units `utf8` (valid UTF-8) has.
std::size_t Utf16Length(std::string_view utf8);

/// What can be typed on one line: `text` (valid UTF-8) up to its first line break, without control characters.
std::string TypedLine(std::string_view text);

/// Equality without regard to the case of the letters A to Z.
bool EqualIgnoringCase(std::string_view a, std::string_view b);

}  // namespace sorvex
