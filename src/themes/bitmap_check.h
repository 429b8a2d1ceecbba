// SPDX-License-Identifier: MIT
// A look at a bitmap file's header before the system's reader gets it: readers trust what it says.
#pragma once

#include <string_view>

namespace sorvex {

/// False when the bytes are no Windows bitmap (BITMAPFILEHEADER and an info or core header, Windows GDI documentation),
/// when its sides are not between 1 and 32767 pixels or its area exceeds 64 Mi pixels, or when the file ends before its
/// last row.
bool HoldsDeclaredBitmap(std::string_view bytes);

}  // namespace sorvex
