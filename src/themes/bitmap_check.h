// SPDX-License-Identifier: MIT
// Validates a bitmap file's headers before the platform's decoder reads them, because decoders trust declared sizes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/rectangle.h"

namespace sorvex {

/// Bytes of the longest headers: BITMAPFILEHEADER and BITMAPV5HEADER (wingdi.h).
inline constexpr std::size_t kBitmapHeaders = 14 + 124;

/// What a bitmap file's headers declare.
struct DeclaredBitmap {
  Size size;
  std::uint64_t bytes;  ///< upper bound for the length of headers and pixel data; the file may be shorter
};

/// Reads the headers of a Windows bitmap (info or core header) from the file's first kBitmapHeaders bytes or more.
/// nullopt if the bytes are not such a file, width or height is not in 1 to kLongestSide, a pixel has more than 32
/// bits, or the pixel data begins after kMaxPixelOffset bytes.
std::optional<DeclaredBitmap> ReadBitmapHeaders(std::string_view start);

/// The size in pixels that a bitmap file declares; `bytes` holds at least its first DeclaredBitmap::bytes, or all of
/// it. nullopt if its headers are invalid or the bytes end before its last row.
std::optional<Size> DeclaredSize(std::string_view bytes);

/// Mends, in the bytes of a bitmap file that passed DeclaredSize, what decoders make different things of: an offset of
/// the pixel data that points into the headers or the palette (some writers leave it 0), and a last row whose padding
/// is missing. Bytes that are no such file stay as they are.
void CompleteBitmap(std::string& bytes);

}  // namespace sorvex
