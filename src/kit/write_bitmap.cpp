// SPDX-License-Identifier: MIT
// Headers (BITMAPFILEHEADER and BITMAPINFOHEADER, wingdi.h), a palette, and rows from the bottom to the top.
#include "kit/write_bitmap.h"

#include <cstdint>
#include <vector>

#include "kit/little_endian.h"

namespace sorvex {
namespace {

// All that stands before the rows.
std::string Headers(Size size, std::uint32_t bits, const std::vector<Pixel>& palette, std::size_t bytesOfRows) {
  constexpr std::uint32_t infoHeader = 40;
  constexpr std::uint32_t dotsPerMeter = 3780;  // 96 to the inch
  const auto colors = static_cast<std::uint32_t>(palette.size());
  const std::uint32_t offset = 14 + infoHeader + 4 * colors;
  const auto rows = static_cast<std::uint32_t>(bytesOfRows);
  std::string bytes = "BM";
  for (const std::uint32_t field : {offset + rows, 0U, offset, infoHeader}) AppendNumber(bytes, field, 4);
  for (const int side : {size.width, size.height}) AppendNumber(bytes, static_cast<std::uint32_t>(side), 4);
  for (const std::uint32_t field : {1U, bits}) AppendNumber(bytes, field, 2);
  for (const std::uint32_t field : {0U, rows, dotsPerMeter, dotsPerMeter, colors, colors})
    AppendNumber(bytes, field, 4);
  for (const Pixel color : palette) AppendNumber(bytes, color & 0xFFFFFF, 4);
  return bytes;
}

void PadRow(std::string& rows) { rows.append((4 - rows.size() % 4) % 4, '\0'); }

}  // namespace

std::string EncodePicture(const Bitmap& picture) {
  std::string rows;
  for (int y = picture.Height() - 1; y >= 0; --y) {
    for (int x = 0; x < picture.Width(); ++x) AppendNumber(rows, picture.At(x, y), 3);
    PadRow(rows);
  }
  return Headers(picture.Extent(), 24, {}, rows.size()) + rows;
}

std::string EncodeMask(const Bitmap& mask) {
  std::string rows;
  for (int y = mask.Height() - 1; y >= 0; --y) {
    for (int x = 0; x < mask.Width(); ++x) {
      if (x % 8 == 0) rows += '\0';
      if (mask.At(x, y) == kWhite) rows.back() = static_cast<char>(rows.back() | 0x80 >> x % 8);
    }
    PadRow(rows);
  }
  return Headers(mask.Extent(), 1, {kBlack, kWhite}, rows.size()) + rows;
}

}  // namespace sorvex
