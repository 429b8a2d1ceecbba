// SPDX-License-Identifier: MIT
// Checks declared sizes against the bytes that are present.
#include "themes/bitmap_check.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "base/limits.h"

namespace sorvex {
namespace {

constexpr std::uint32_t kRle8 = 1;
constexpr std::uint32_t kRle4 = 2;

struct Header {
  std::uint32_t pixelOffset = 0;
  std::int64_t width = 0;
  std::int64_t height = 0;
  std::uint32_t bitsPerPixel = 0;
  std::uint32_t compression = 0;

  bool HasRuns() const { return compression == kRle8 || compression == kRle4; }
  std::int64_t RowBits() const { return width * bitsPerPixel; }
  std::int64_t Stride() const { return (RowBits() + 31) / 32 * 4; }
};

std::uint32_t Byte(std::string_view bytes, std::size_t at) { return static_cast<std::uint8_t>(bytes[at]); }
std::uint32_t Word(std::string_view bytes, std::size_t at) { return Byte(bytes, at) | Byte(bytes, at + 1) << 8; }
std::uint32_t DoubleWord(std::string_view bytes, std::size_t at) { return Word(bytes, at) | Word(bytes, at + 2) << 16; }

// Bytes before the pixel data: file header, info header of `size` bytes, masks and palette.
std::uint32_t BytesOfHeaders(std::string_view bytes, std::uint32_t size, const Header& header) {
  constexpr std::uint32_t coreHeader = 12;
  constexpr std::uint32_t infoHeader = 40;
  constexpr std::uint32_t bitFields = 3;
  constexpr std::uint32_t alphaBitFields = 6;
  std::uint32_t end = 14 + size;
  if (size == infoHeader && header.compression == bitFields) end += 12;
  if (size == infoHeader && header.compression == alphaBitFields) end += 16;
  if (header.bitsPerPixel <= 8) {
    const std::uint32_t used = size >= infoHeader ? DoubleWord(bytes, 46) : 0;
    const std::uint32_t colors = used != 0 ? std::min(used, 256U) : 1U << header.bitsPerPixel;
    end += colors * (size == coreHeader ? 3 : 4);
  }
  return end;
}

// nullopt if the bytes hold no header, or one with sizes out of range.
std::optional<Header> ReadHeader(std::string_view bytes) {
  constexpr std::size_t fileHeader = 14;
  constexpr std::size_t coreHeader = 12;
  constexpr std::size_t shortestInfoHeader = 16;
  constexpr std::size_t shortestWithCompression = 20;
  if (bytes.size() < fileHeader + coreHeader || !bytes.starts_with("BM")) return std::nullopt;
  Header header;
  header.pixelOffset = DoubleWord(bytes, 10);
  const std::uint32_t size = DoubleWord(bytes, fileHeader);
  if (size > kBitmapHeaders - fileHeader || bytes.size() < fileHeader + size) return std::nullopt;
  if (size == coreHeader) {
    header.width = Word(bytes, 18);
    header.height = Word(bytes, 20);
    header.bitsPerPixel = Word(bytes, 24);
  } else if (size >= shortestInfoHeader) {
    header.width = static_cast<std::int32_t>(DoubleWord(bytes, 18));
    // A negative height means top-down rows.
    header.height = std::abs(std::int64_t{static_cast<std::int32_t>(DoubleWord(bytes, 22))});
    header.bitsPerPixel = Word(bytes, 28);
    if (size >= shortestWithCompression) header.compression = DoubleWord(bytes, 30);
  }
  const auto isSide = [](std::int64_t side) { return side >= 1 && side <= kLongestSide; };
  if (!isSide(header.width) || !isSide(header.height) || header.bitsPerPixel > 32 ||
      header.pixelOffset > kMaxPixelOffset)
    return std::nullopt;
  header.pixelOffset = std::max(header.pixelOffset, BytesOfHeaders(bytes, size, header));
  return header;
}

// True if run-length encoded data (BI_RLE8, BI_RLE4) continues to its end code or past the last row.
bool RunsReachTheEnd(std::string_view data, const Header& header) {
  std::int64_t rows = 0;
  for (std::size_t at = 0; at + 1 < data.size(); at += 2) {
    if (Byte(data, at) != 0) continue;
    const std::uint32_t code = Byte(data, at + 1);
    if (code == 0 && ++rows >= header.height) return true;
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

std::optional<DeclaredBitmap> ReadBitmapHeaders(std::string_view start) {
  const std::optional<Header> header = ReadHeader(start);
  if (!header) return std::nullopt;
  // Run-length encoded data needs at most four bytes, the length of a delta, per pixel or line end.
  constexpr std::int64_t longestCode = 4;
  const std::int64_t pixels =
      header->HasRuns() ? longestCode * (header->width + 1) * header->height : header->Stride() * header->height;
  return DeclaredBitmap{{static_cast<int>(header->width), static_cast<int>(header->height)},
                        header->pixelOffset + static_cast<std::uint64_t>(pixels)};
}

std::optional<Size> DeclaredSize(std::string_view bytes) {
  const std::optional<Header> header = ReadHeader(bytes);
  if (!header || header->pixelOffset >= bytes.size()) return std::nullopt;
  const std::string_view data = bytes.substr(header->pixelOffset);
  // The last row needs no padding.
  const std::int64_t needed = header->Stride() * (header->height - 1) + (header->RowBits() + 7) / 8;
  const bool whole =
      header->HasRuns() ? RunsReachTheEnd(data, *header) : static_cast<std::int64_t>(data.size()) >= needed;
  if (!whole) return std::nullopt;
  return Size{static_cast<int>(header->width), static_cast<int>(header->height)};
}

void CompleteBitmap(std::string& bytes) {
  const std::optional<Header> header = ReadHeader(bytes);
  if (!header) return;
  if (!header->HasRuns() && DeclaredSize(bytes)) {
    const std::uint64_t whole = header->pixelOffset + static_cast<std::uint64_t>(header->Stride() * header->height);
    if (bytes.size() < whole) bytes.resize(static_cast<std::size_t>(whole));
  }
  for (std::size_t i = 0; i < 4; ++i) bytes[10 + i] = static_cast<char>(header->pixelOffset >> (8 * i) & 0xFF);
}

}  // namespace sorvex
