// SPDX-License-Identifier: MIT
// Conversion of texts, fonts and colors to Windows types, and text measuring.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "base/bitmap.h"
#include "platform/controls.h"

namespace sorvex {

/// UTF-8 to UTF-16; line ends are unchanged, invalid UTF-8 becomes U+FFFD.
std::wstring ToWide(std::string_view utf8);
std::string FromWide(std::wstring_view text);

/// UTF-8 to the ANSI code page, for A-suffixed functions; characters that it lacks become question marks.
std::string ToAnsi(std::string_view utf8);

/// The font for measuring and painting: a point is 4/3 pixels at every resolution. Never freed.
HFONT FontFor(const Font& font);

/// Flags of DrawTextW for measuring and painting.
UINT TextFormat(Alignment alignment, bool wordWrap);

/// The size of `text` in pixels; wrapped to `wrapWidth` if that is above 0. Empty text is one line high.
Size TextSize(const Font& font, const std::string& text, int wrapWidth);

/// A color as a pixel value; system colors come from the desktop.
Pixel Resolve(Color color);

constexpr COLORREF ToColorRef(Pixel pixel) { return RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF); }

}  // namespace sorvex
