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
  bool topDown = false;
  std::uint32_t bitsPerPixel = 0;
  std::uint32_t compression = 0;

  bool HasRuns() const { return compression == kRle8 || compression == kRle4; }
  std::int64_t RowBits() const { return width * bitsPerPixel; }
  std::int64_t Stride() const { return (RowBits() + 31) / 32 * 4; }
};

std::uint32_t Byte(std::string_view bytes, std::size_t at) { return static_cast<std::uint8_t>(bytes[at]); }
std::uint32_t Word(std::string_view bytes, std::size_t at) { return Byte(bytes, at) | Byte(bytes, at + 1) << 8; }
std::uint32_t DoubleWord(std::string_view bytes, std::size_t at) { return Word(bytes, at) | Word(bytes, at + 2) << 16; }

void PutNumber(std::string& bytes, std::size_t at, std::size_t size, std::uint32_t number) {
  for (std::size_t i = 0; i < size; ++i) bytes[at + i] = static_cast<char>(number >> (8 * i) & 0xFF);
}

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

bool IsDepth(const Header& header) {
  if (header.compression == kRle8) return header.bitsPerPixel == 8;
  if (header.compression == kRle4) return header.bitsPerPixel == 4;
  constexpr std::uint32_t depths[] = {1, 4, 8, 16, 24, 32};
  return std::find(std::begin(depths), std::end(depths), header.bitsPerPixel) != std::end(depths);
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
    const auto height = static_cast<std::int32_t>(DoubleWord(bytes, 22));
    header.topDown = height < 0;
    header.height = std::abs(std::int64_t{height});
    header.bitsPerPixel = Word(bytes, 28);
    if (size >= shortestWithCompression) header.compression = DoubleWord(bytes, 30);
  }
  const auto isSide = [](std::int64_t side) { return side >= 1 && side <= kLongestSide; };
  if (!isSide(header.width) || !isSide(header.height) || !IsDepth(header) || header.pixelOffset > kMaxPixelOffset)
    return std::nullopt;
  header.pixelOffset = std::max(header.pixelOffset, BytesOfHeaders(bytes, size, header));
  return header;
}

}  // namespace

std::optional<DeclaredBitmap> ReadBitmapHeaders(std::string_view start) {
  const std::optional<Header> header = ReadHeader(start);
  if (!header) return std::nullopt;
  // In run-length encoded data, a pixel or a line end takes at most four bytes, the length of a delta. It ends with a
  // code of two bytes. In other data the last row needs no padding.
  constexpr std::int64_t delta = 4;
  constexpr std::int64_t code = 2;
  const std::int64_t most =
      header->HasRuns() ? delta * (header->width + 1) * header->height + code : header->Stride() * header->height;
  const std::int64_t fewest =
      header->HasRuns() ? code : header->Stride() * (header->height - 1) + (header->RowBits() + 7) / 8;
  return DeclaredBitmap{.size = {static_cast<int>(header->width), static_cast<int>(header->height)},
                        .mostBytes = header->pixelOffset + static_cast<std::uint64_t>(most),
                        .fewestBytes = header->pixelOffset + static_cast<std::uint64_t>(fewest),
                        .pixelOffset = header->pixelOffset,
                        .rowBytes = static_cast<std::uint32_t>(header->Stride()),
                        .topDown = header->topDown,
                        .runBits = header->HasRuns() ? static_cast<int>(header->bitsPerPixel) : 0};
}

std::size_t RunScan::Follow(std::string_view data) {
  std::size_t at = 0;
  while (at + 1 < data.size() && !Ended()) {
    const std::uint32_t count = Byte(data, at);
    const std::uint32_t code = Byte(data, at + 1);
    std::size_t length = 2;
    if (count == 0 && code == 2) length += 2;
    if (count == 0 && code > 2) length += (code * static_cast<std::uint32_t>(runBits_) + 15) / 16 * 2;
    if (length > data.size() - at) break;
    if (count == 0 && code == 0) --rowsLeft_;
    if (count == 0 && code == 1) rowsLeft_ = 0;
    if (count == 0 && code == 2) rowsLeft_ -= static_cast<int>(Byte(data, at + 3));
    at += length;
  }
  return at;
}

std::optional<Size> DeclaredSize(std::string_view bytes) {
  const std::optional<DeclaredBitmap> declared = ReadBitmapHeaders(bytes);
  if (!declared || bytes.size() < declared->fewestBytes) return std::nullopt;
  if (declared->runBits != 0) {
    RunScan runs(*declared);
    runs.Follow(bytes.substr(declared->pixelOffset));
    if (!runs.Ended()) return std::nullopt;
  }
  return declared->size;
}

std::string BitmapOfRows(std::string_view headers, int rows, std::string_view data) {
  constexpr std::size_t coreHeader = 12;
  std::string bytes;
  bytes.reserve(headers.size() + data.size());
  bytes.append(headers).append(data);
  if (DoubleWord(bytes, 14) == coreHeader) {
    PutNumber(bytes, 20, 2, static_cast<std::uint32_t>(rows));
  } else {
    const bool topDown = DoubleWord(bytes, 22) >> 31 != 0;
    PutNumber(bytes, 22, 4, static_cast<std::uint32_t>(topDown ? -rows : rows));
    if (DoubleWord(bytes, 14) >= 24) PutNumber(bytes, 34, 4, 0);  // the length of the data, which need not be said
  }
  return bytes;
}

void CompleteBitmap(std::string& bytes) {
  const std::optional<Header> header = ReadHeader(bytes);
  if (!header) return;
  if (!header->HasRuns() && DeclaredSize(bytes)) {
    const std::uint64_t whole = header->pixelOffset + static_cast<std::uint64_t>(header->Stride() * header->height);
    if (bytes.size() < whole) bytes.resize(static_cast<std::size_t>(whole));
  }
  PutNumber(bytes, 10, 4, header->pixelOffset);
}

}  // namespace sorvex
