// SPDX-License-Identifier: MIT
// The contact test on the masks' bits, 64 pixels at a time, and the placement test.
#include "game/collision.h"

#include <algorithm>
#include <cstdint>
#include <span>

namespace sorvex {
namespace {

// The 64 bits of `row` that begin at bit `from`, which may lie outside: what is outside is 0.
std::uint64_t BitsFrom(std::span<const std::uint64_t> row, int from) {
  const int word = from >> 6;
  const int shift = from & 63;
  const auto at = [&](int i) {
    return i >= 0 && i < static_cast<int>(row.size()) ? row[static_cast<std::size_t>(i)] : std::uint64_t{0};
  };
  const std::uint64_t low = at(word) >> shift;
  return shift == 0 ? low : low | at(word + 1) << (64 - shift);
}

// Whether the first `width` bits of `item` meet bits of `container` shifted by `dx`.
bool RowsMeet(std::span<const std::uint64_t> item, std::span<const std::uint64_t> container, int width, int dx) {
  for (int x = 0; x < width; x += 64) {
    std::uint64_t bits = item[static_cast<std::size_t>(x / 64)] & BitsFrom(container, x + dx);
    if (width - x < 64) bits &= (std::uint64_t{1} << (width - x)) - 1;
    if (bits != 0) return true;
  }
  return false;
}

const MaskBits* BitsOf(const PictureBox& mask) {
  return mask.PictureObject() ? mask.PictureObject()->mask.get() : nullptr;
}

}  // namespace

bool HitsContainer(Integer itemLeft, Integer itemTop, Integer containerLeft, Integer containerTop,
                   const PictureBox& itemMask, const PictureBox& containerMask, PictureBox& work) {
  const Integer dx = ToInteger(itemLeft - containerLeft);
  const Integer dy = ToInteger(itemTop - containerTop);
  const Size seen = work.ScaleSize();
  // Only the size is kept: what was composed on the work surface is the two masks' bits.
  work.Width = itemMask.Width;
  work.Height = itemMask.Height;

  const MaskBits* item = BitsOf(itemMask);
  const MaskBits* container = BitsOf(containerMask);
  if (item == nullptr || container == nullptr) return false;
  const BitPlane& opaque = item->itemOpaque;
  const BitPlane& solid = container->containerSolid;
  const int width = std::min(opaque.Extent().width, seen.width);
  const int top = std::max(0, -dy);
  const int bottom = std::min({opaque.Extent().height, seen.height, solid.Extent().height - dy});
  for (int y = top; y < bottom; ++y)
    if (RowsMeet(opaque.Row(y), solid.Row(y + dy), width, dx)) return true;
  return false;
}

bool OverTarget(Integer itemLeft, Integer itemTop, Integer targetLeft, Integer targetTop, const PictureBox& itemMask,
                const PictureBox& targetMask) {
  const float x = static_cast<float>(itemLeft) + itemMask.ScaleWidth() / 2;
  const float y = static_cast<float>(itemTop) + itemMask.ScaleHeight() / 2;
  const auto left = static_cast<float>(targetLeft);
  const auto top = static_cast<float>(targetTop);
  return x > left && x < left + targetMask.ScaleWidth() && y > top && y < top + targetMask.ScaleHeight();
}

}  // namespace sorvex
