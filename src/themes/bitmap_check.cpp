// SPDX-License-Identifier: MIT
// Declared sizes against the bytes that are there.
#include "themes/bitmap_check.h"

#include <cstdint>
#include <cstdlib>

namespace sorvex {
namespace {

constexpr std::int64_t kLongestSide = 32767;
constexpr std::uint32_t kRle8 = 1;
constexpr std::uint32_t kRle4 = 2;

struct Header {
  std::uint32_t pixelOffset = 0;
  std::int64_t width = 0;
  std::int64_t height = 0;  // negative: rows from the top
  std::uint32_t bitsPerPixel = 0;
  std::uint32_t compression = 0;
};

std::uint32_t Byte(std::string_view bytes, std::size_t at) { return static_cast<std::uint8_t>(bytes[at]); }
std::uint32_t Word(std::string_view bytes, std::size_t at) { return Byte(bytes, at) | Byte(bytes, at + 1) << 8; }
std::uint32_t DoubleWord(std::string_view bytes, std::size_t at) { return Word(bytes, at) | Word(bytes, at + 2) << 16; }

// False when the bytes hold no header.
bool ReadHeader(std::string_view bytes, Header& header) {
  constexpr std::size_t fileHeader = 14;
  constexpr std::size_t coreHeader = 12;
  constexpr std::size_t shortestInfoHeader = 16;
  if (bytes.size() < fileHeader + coreHeader || !bytes.starts_with("BM")) return false;
  header.pixelOffset = DoubleWord(bytes, 10);
  const std::uint32_t size = DoubleWord(bytes, fileHeader);
  if (bytes.size() < fileHeader + std::uint64_t{size}) return false;
  if (size == coreHeader) {
    header.width = Word(bytes, 18);
    header.height = Word(bytes, 20);
    header.bitsPerPixel = Word(bytes, 24);
    return true;
  }
  if (size < shortestInfoHeader) return false;
  header.width = static_cast<std::int32_t>(DoubleWord(bytes, 18));
  header.height = static_cast<std::int32_t>(DoubleWord(bytes, 22));
  header.bitsPerPixel = Word(bytes, 28);
  if (size > shortestInfoHeader) header.compression = DoubleWord(bytes, 30);
  return true;
}

// Follows run-length encoded data (BI_RLE8, BI_RLE4) to its end mark or past its last row.
bool RunsReachTheEnd(std::string_view data, const Header& header) {
  std::int64_t rows = 0;
  for (std::size_t at = 0; at + 1 < data.size(); at += 2) {
    if (Byte(data, at) != 0) continue;
    const std::uint32_t code = Byte(data, at + 1);
    if (code == 0 && ++rows >= std::abs(header.height)) return true;
    if (code == 1) return true;
    if (code == 2) {
      if (at + 3 >= data.size()) return false;
      rows += Byte(data, at + 3);
      at += 2;
    } else if (code > 2) {
      const std::size_t literal = header.compression == kRle4 ? (code + 1) / 2 : code;
      at += literal + literal % 2;
    }
  }
  return false;
}

}  // namespace

std::optional<Size> DeclaredSize(std::string_view bytes) {
  Header header;
  if (!ReadHeader(bytes, header)) return std::nullopt;
  const std::int64_t height = std::abs(header.height);
  if (header.width < 1 || header.width > kLongestSide || height < 1 || height > kLongestSide ||
      header.bitsPerPixel > 64 || header.pixelOffset >= bytes.size())
    return std::nullopt;
  const std::string_view data = bytes.substr(header.pixelOffset);
  const Size size{static_cast<int>(header.width), static_cast<int>(height)};
  if (header.compression == kRle8 || header.compression == kRle4)
    return RunsReachTheEnd(data, header) ? std::optional(size) : std::nullopt;
  const std::int64_t rowBits = header.width * header.bitsPerPixel;
  const std::int64_t stride = (rowBits + 31) / 32 * 4;
  // The last row needs no padding.
  const std::int64_t needed = stride * (height - 1) + (rowBits + 7) / 8;
  return static_cast<std::int64_t>(data.size()) >= needed ? std::optional(size) : std::nullopt;
}

}  // namespace sorvex
