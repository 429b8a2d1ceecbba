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
  std::uint64_t mostBytes;    ///< upper bound for the length of headers and pixel data
  std::uint64_t fewestBytes;  ///< lower bound, exact unless the data is run-length encoded
  std::uint32_t pixelOffset;  ///< where the pixel data begins
  std::uint32_t rowBytes;     ///< of a row and its padding, unless run-length encoded
  bool topDown;               ///< the first row is the top one
  int runBits;                ///< bits per pixel of run-length encoded data (BI_RLE4, BI_RLE8); 0: not encoded
};

/// Follows run-length encoded data, piece by piece.
class RunScan {
 public:
  explicit RunScan(const DeclaredBitmap& bitmap) : rowsLeft_(bitmap.size.height), runBits_(bitmap.runBits) {}
  /// Follows the codes that are complete in `data` and returns their length; what is left belongs before the next
  /// piece.
  std::size_t Follow(std::string_view data);
  /// True once the data has continued to its end code or past the last row.
  bool Ended() const { return rowsLeft_ <= 0; }

 private:
  int rowsLeft_;
  int runBits_;
};

/// Reads the headers of a Windows bitmap (info or core header) from the file's first kBitmapHeaders bytes or more.
/// nullopt if the bytes are not such a file, width or height is not in 1 to kLongestSide, no bitmap has so many bits
/// per pixel, or the pixel data begins after kMaxPixelOffset bytes.
std::optional<DeclaredBitmap> ReadBitmapHeaders(std::string_view start);

/// The size in pixels that a bitmap file declares; `bytes` holds at least its first DeclaredBitmap::mostBytes, or all
/// of it. nullopt if its headers are invalid or the bytes end before its last row.
std::optional<Size> DeclaredSize(std::string_view bytes);

/// A bitmap file of `rows` of a file's rows: `headers` are that file's bytes before the pixel data, `data` is those
/// rows.
std::string BitmapOfRows(std::string_view headers, int rows, std::string_view data);

/// Mends, in the bytes of a bitmap file that passed DeclaredSize, what decoders make different things of: an offset of
/// the pixel data that points into the headers or the palette (some writers leave it 0), and a last row whose padding
/// is missing. Bytes that are no such file stay as they are.
void CompleteBitmap(std::string& bytes);

}  // namespace sorvex
