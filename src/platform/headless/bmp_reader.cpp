// SPDX-License-Identifier: MIT
// Reading uncompressed bitmaps of 24 and 32 bits a pixel.
#include "platform/headless/bmp_reader.h"

#include <cstdint>
#include <cstdlib>

namespace sorvex {
namespace {

constexpr std::size_t kHeaders = 14 + 40;
constexpr std::int32_t kMostPixelsAcross = 8192;

std::uint32_t LittleEndian(std::string_view bytes, std::size_t at, std::size_t count) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < count; ++i)
    value |= static_cast<std::uint32_t>(static_cast<std::uint8_t>(bytes[at + i])) << (8 * i);
  return value;
}

}  // namespace

std::optional<Bitmap> ReadBmp(std::string_view bytes) {
  if (bytes.size() < kHeaders || !bytes.starts_with("BM")) return std::nullopt;
  const std::size_t start = LittleEndian(bytes, 10, 4);
  const auto width = static_cast<std::int32_t>(LittleEndian(bytes, 18, 4));
  const auto height = static_cast<std::int32_t>(LittleEndian(bytes, 22, 4));
  const std::uint32_t bits = LittleEndian(bytes, 28, 2);
  const bool plain = LittleEndian(bytes, 30, 4) == 0;
  if (!plain || (bits != 24 && bits != 32)) return std::nullopt;
  if (width < 1 || width > kMostPixelsAcross || height == 0 || height > kMostPixelsAcross ||
      height < -kMostPixelsAcross)
    return std::nullopt;

  const Size size{width, std::abs(height)};
  const std::size_t bytesPerPixel = bits / 8;
  const std::size_t stride = (static_cast<std::size_t>(width) * bytesPerPixel + 3) / 4 * 4;
  if (start > bytes.size() || bytes.size() - start < stride * static_cast<std::size_t>(size.height))
    return std::nullopt;
  Bitmap bitmap(size);
  for (int y = 0; y < size.height; ++y) {
    const int stored = height > 0 ? size.height - 1 - y : y;
    for (int x = 0; x < size.width; ++x) {
      const std::size_t at =
          start + static_cast<std::size_t>(stored) * stride + static_cast<std::size_t>(x) * bytesPerPixel;
      bitmap.Row(y)[x] = kBlack | LittleEndian(bytes, at, 3);
    }
  }
  return bitmap;
}

}  // namespace sorvex
