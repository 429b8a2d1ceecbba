// SPDX-License-Identifier: MIT
// Decoding text files, and cutting text at character boundaries.
#include "base/text.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace sorvex {
namespace {

// Characters 80 to 9F of Windows-1252; the five unassigned codes map to themselves, as on Windows.
constexpr std::array<char16_t, 32> kWindows1252 = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                   0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                   0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                   0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void AppendUtf8(std::string& text, char16_t c) {
  if (c < 0x80) {
    text += static_cast<char>(c);
  } else if (c < 0x800) {
    text += static_cast<char>(0xC0 | (c >> 6));
    text += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    text += static_cast<char>(0xE0 | (c >> 12));
    text += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    text += static_cast<char>(0x80 | (c & 0x3F));
  }
}

// Length of the valid UTF-8 sequence at the start of `text` (not empty), 0 if there is none.
std::size_t SequenceLength(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
  const std::uint8_t lead = byte(0);
  if (lead < 0x80) return 1;
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return 0;
  for (std::size_t i = 1; i < length; ++i)
    if ((byte(i) & 0xC0) != 0x80) return 0;
  const bool overlong = (lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xF0 && byte(1) < 0x90);
  const bool surrogate = lead == 0xED && byte(1) > 0x9F;
  const bool beyond = lead == 0xF4 && byte(1) > 0x8F;
  return overlong || surrogate || beyond ? 0 : length;
}

}  // namespace

bool IsValidUtf8(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = SequenceLength(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

std::string DecodeText(std::string_view bytes) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  if (IsValidUtf8(bytes)) return std::string(bytes.starts_with(mark) ? bytes.substr(mark.size()) : bytes);
  std::string text;
  text.reserve(bytes.size() * 2);
  for (const char c : bytes) {
    const auto code = static_cast<std::uint8_t>(c);
    AppendUtf8(text, code >= 0x80 && code < 0xA0 ? kWindows1252[code - 0x80U] : static_cast<char16_t>(code));
  }
  return text;
}

std::size_t Utf16Length(std::string_view utf8) {
  std::size_t length = 0;
  for (const char c : utf8) {
    const auto byte = static_cast<std::uint8_t>(c);
    if ((byte & 0xC0) != 0x80) length += byte >= 0xF0 ? 2 : 1;
  }
  return length;
}

std::string TypedLine(std::string_view text) {
  for (const std::string_view lineBreak : {"\r", "\n", "\u2028", "\u2029"}) text = text.substr(0, text.find(lineBreak));
  std::string line(text);
  std::erase_if(line, [](char c) { return (c >= 0 && c < 0x20) || c == 0x7F; });
  return line;
}

std::string_view Utf8Prefix(std::string_view text, std::size_t bytes) {
  if (bytes >= text.size()) return text;
  while (bytes > 0 && (static_cast<std::uint8_t>(text[bytes]) & 0xC0) == 0x80) --bytes;
  return text.substr(0, bytes);
}

std::size_t FittingLength(std::string_view text, const Fits& fits) {
  std::size_t fitting = 0;
  std::size_t tooLong = 16;
  while (fits(Utf8Prefix(text, tooLong))) {
    if (tooLong >= text.size()) return text.size();
    fitting = tooLong;
    tooLong *= 2;
  }
  while (tooLong - fitting > 1) {
    const std::size_t middle = fitting + (tooLong - fitting) / 2;
    (fits(Utf8Prefix(text, middle)) ? fitting : tooLong) = middle;
  }
  return Utf8Prefix(text, fitting).size();
}

std::string CutText(std::string_view text, const Fits& fits) {
  const std::string ellipsis = "\u2026";
  const std::size_t length =
      FittingLength(text, [&](std::string_view beginning) { return fits(std::string(beginning) + ellipsis); });
  return std::string(text.substr(0, length)) + ellipsis;
}

std::string FittingText(std::string_view text, const Fits& fits) {
  return FittingLength(text, fits) == text.size() ? std::string(text) : CutText(text, fits);
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [&](char x, char y) { return lower(x) == lower(y); });
}

}  // namespace sorvex
