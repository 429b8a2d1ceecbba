// SPDX-License-Identifier: MIT
// Thresholding a mask's pixels to bits.
#include "game/mask.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>

namespace sorvex {
namespace {

constexpr int kWordBits = 64;

// A bit for each pixel, set where `condition` holds.
template <class Condition>
BitPlane BitsWhere(const Bitmap& pixels, Condition condition) {
  BitPlane bits(pixels.Extent());
  for (int y = 0; y < pixels.Height(); ++y) {
    for (int left = 0; left < pixels.Width(); left += kWordBits) {
      std::uint64_t word = 0;
      for (int x = std::min(left + kWordBits, pixels.Width()) - 1; x >= left; --x)
        word = word << 1 | std::uint64_t{condition(pixels.Row(y)[x])};
      bits.Row(y)[left / kWordBits] = word;
    }
  }
  return bits;
}

}  // namespace

Mask::Mask(Bitmap pixels)
    : PictureData(std::make_shared<const Bitmap>(std::move(pixels))),
      itemOpaque_(BitsWhere(Pixels(), [](Pixel pixel) { return pixel == kBlack; })),
      containerSolid_(BitsWhere(Pixels(), [](Pixel pixel) { return (pixel & 0xC00000) == 0; })) {}

Picture MakeMask(Bitmap pixels) { return std::make_shared<const Mask>(std::move(pixels)); }

const Mask* AsMask(const Picture& picture) { return dynamic_cast<const Mask*>(picture.get()); }

}  // namespace sorvex
