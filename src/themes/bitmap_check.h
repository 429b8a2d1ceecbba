// SPDX-License-Identifier: MIT
// A look at a bitmap file's header before the system's reader gets it: readers trust what it says.
#pragma once

#include <optional>
#include <string_view>

#include "base/rectangle.h"

namespace sorvex {

/// The size that a Windows bitmap (BITMAPFILEHEADER and an info or core header, Windows GDI documentation) declares.
/// nullopt when the bytes are no such file, when a side is not between 1 and 32767 pixels, or when the file ends before
/// its last row.
std::optional<Size> DeclaredSize(std::string_view bytes);

}  // namespace sorvex
