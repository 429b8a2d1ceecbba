// SPDX-License-Identifier: MIT
// A look at a bitmap file's header before the system's reader gets it: readers trust what it says.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "base/rectangle.h"

namespace sorvex {

/// Bytes at the start of a bitmap file that hold its headers: BITMAPFILEHEADER and the longest info header,
/// BITMAPV5HEADER (wingdi.h).
inline constexpr std::size_t kBitmapHeaders = 14 + 124;

/// What a bitmap file declares.
struct DeclaredBitmap {
  Size size;
  std::uint64_t bytes;  ///< as much of the file as its pixels can take up, from the start; it may be shorter
};

/// Reads the headers of a Windows bitmap (an info or core header, Windows GDI documentation), given the file's first
/// kBitmapHeaders bytes or more. nullopt when the bytes are no such file, when a side is not between 1 and kLongestSide
/// pixels, when a pixel has more than 32 bits, or when the pixels begin behind kLatestPixels.
std::optional<DeclaredBitmap> ReadBitmapHeaders(std::string_view start);

/// The size that a bitmap file declares, given as many of its bytes as it needs. nullopt when its headers are refused
/// or the bytes end before its last row.
std::optional<Size> DeclaredSize(std::string_view bytes);

}  // namespace sorvex
