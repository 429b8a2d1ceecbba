// SPDX-License-Identifier: MIT
// Making picture objects, with the bits that the contact test reads.
#include "platform/picture.h"

#include <algorithm>
#include <cstdint>
#include <ranges>
#include <span>
#include <utility>

namespace sorvex {
namespace {

// Bit n says whether `condition` holds for pixel n of up to 64.
template <class Condition>
std::uint64_t BitsWhere(std::span<const Pixel> pixels, Condition condition) {
  std::uint64_t bits = 0;
  for (const Pixel pixel : pixels | std::views::reverse) bits = bits << 1 | std::uint64_t{condition(pixel)};
  return bits;
}

}  // namespace

Picture MakePicture(Bitmap pixels) {
  return std::make_shared<const PictureData>(std::make_shared<const Bitmap>(std::move(pixels)));
}

Picture MakeTwin(const Picture& picture) { return std::make_shared<const PictureData>(picture->SharedPixels()); }

Picture MakeMask(Bitmap pixels) {
  auto bits = std::make_unique<MaskBits>(MaskBits{BitPlane(pixels.Extent()), BitPlane(pixels.Extent())});
  for (int y = 0; y < pixels.Height(); ++y) {
    for (int x = 0; x < pixels.Width(); x += 64) {
      const std::span<const Pixel> some(pixels.Row(y) + x, static_cast<std::size_t>(std::min(64, pixels.Width() - x)));
      bits->itemOpaque.Row(y)[x / 64] = BitsWhere(some, [](Pixel pixel) { return pixel == kBlack; });
      bits->containerSolid.Row(y)[x / 64] = BitsWhere(some, [](Pixel pixel) { return (pixel & 0xC00000) == 0; });
    }
  }
  return std::make_shared<const PictureData>(std::make_shared<const Bitmap>(std::move(pixels)), std::move(bits));
}

}  // namespace sorvex
