// SPDX-License-Identifier: MIT
// Text is UTF-8 inside the program; text files may be UTF-8 or Windows-1252.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace sorvex {

/// A text file's bytes as UTF-8: a leading UTF-8 byte order mark is dropped; text that is not valid UTF-8 is decoded
/// as Windows-1252.
std::string DecodeText(std::string_view bytes);

bool IsValidUtf8(std::string_view text);

/// The number of UTF-16 code units that `utf8` (valid UTF-8) converts to.
std::size_t Utf16Length(std::string_view utf8);

/// The first line of `text` (valid UTF-8) without control characters: what could have been typed.
std::string TypedLine(std::string_view text);

/// The longest prefix of `text` (valid UTF-8) of at most `bytes` bytes that does not split a character.
std::string_view Utf8Prefix(std::string_view text, std::size_t bytes);

/// Tells whether a text fits its place. Must be monotonic: every prefix of a text that fits also fits.
using Fits = std::function<bool(std::string_view)>;
/// The length in bytes of the longest prefix of `text` (valid UTF-8) that fits and does not split a character. `fits`
/// is called only with prefixes up to about twice that length, however long `text` is.
std::size_t FittingLength(std::string_view text, const Fits& fits);
/// The longest prefix of `text` that fits with an ellipsis appended, and the ellipsis.
std::string CutText(std::string_view text, const Fits& fits);
/// `text` if it fits, else CutText(text, fits).
std::string FittingText(std::string_view text, const Fits& fits);

/// Compares ignoring the case of the letters A to Z.
bool EqualIgnoringCase(std::string_view a, std::string_view b);

}  // namespace sorvex
