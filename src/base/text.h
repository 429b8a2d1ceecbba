// SPDX-License-Identifier: MIT
// Text: UTF-8 inside the program; text files come in UTF-8 or in Windows-1252.
#pragma once

#include <cstddef>
#include <functional>
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

/// The longest beginning of `text` (valid UTF-8) that has at most `bytes` bytes and ends between two characters.
std::string_view Beginning(std::string_view text, std::size_t bytes);

/// Whether a text fits where it is to be shown. One that fits still does with its end cut off.
using Fits = std::function<bool(std::string_view)>;
/// How many bytes of `text` (valid UTF-8) fit, in whole characters. However long it is, `fits` is asked of beginnings
/// that are at most about twice as long as the one that fits.
std::size_t FittingLength(std::string_view text, const Fits& fits);
/// As much of `text` as fits with an ellipsis behind it.
std::string CutText(std::string_view text, const Fits& fits);
/// The whole of `text` when it fits, else the cut one.
std::string FittingText(std::string_view text, const Fits& fits);

/// Equality without regard to the case of the letters A to Z.
bool EqualIgnoringCase(std::string_view a, std::string_view b);

}  // namespace sorvex
