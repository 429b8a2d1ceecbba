// SPDX-License-Identifier: MIT
// The core's texts, fonts and colours as Windows', and how large a text is painted.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "base/bitmap.h"
#include "platform/controls.h"

namespace sorvex {

/// UTF-8 as UTF-16; line ends stay as they are, bytes that are no UTF-8 become U+FFFD.
std::wstring ToWide(std::string_view utf8);
std::string FromWide(std::wstring_view text);

/// UTF-8 in the system's 8-bit encoding, for the functions that take no other; what it lacks becomes a question mark.
std::string ToAnsi(std::string_view utf8);

/// The font as it is measured and painted: a point is 4/3 pixels at every resolution. The font lives as long as the
/// program.
HFONT FontFor(const Font& font);

/// Flags for DrawTextW with which a text is measured and painted.
UINT TextFormat(Alignment alignment, bool wordWrap);

/// Pixels that `text` takes; wrapped to `wrapWidth` when that is above 0. A text without a letter is one line high.
Size TextSize(const Font& font, const std::string& text, int wrapWidth);

/// What a colour is on this desktop.
Pixel Resolve(Color color);

constexpr COLORREF ToColorRef(Pixel pixel) { return RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF); }

}  // namespace sorvex
