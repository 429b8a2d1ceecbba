// SPDX-License-Identifier: MIT
// The contact test on bitmaps of one bit per pixel, 64 pixels at a time, and the placement test.
#include "game/collision.h"

#include <algorithm>
#include <cstdint>

namespace sorvex {
namespace {

// True if a set bit of the item, in its first `width` columns and rows `top` to `bottom` (exclusive), overlaps a set
// bit of the container. (dx, dy) is the item's corner relative to the container's.
bool BitsMeet(const BitPlane& item, const BitPlane& container, int width, int top, int bottom, int dx, int dy) {
  const int offset = dx >> 6;  // from an item's word to the container's word under its first bit
  const int shift = dx & 63;
  const int first = std::max(0, -1 - offset);
  const int last = std::min((width + 63) / 64, container.WordsPerRow() - offset);
  const std::uint64_t lastBits = width % 64 == 0 ? ~std::uint64_t{0} : (std::uint64_t{1} << (width % 64)) - 1;
  for (int y = top; y < bottom; ++y) {
    const std::uint64_t* opaque = item.Row(y);
    const std::uint64_t* solid = container.Row(y + dy) + offset;
    for (int word = first; word < last; ++word) {
      const std::uint64_t under = solid[word] >> shift | solid[word + 1] << 1 << (63 - shift);
      const std::uint64_t seen = (word + 1) * 64 > width ? lastBits : ~std::uint64_t{0};
      if ((opaque[word] & under & seen) != 0) return true;
    }
  }
  return false;
}

}  // namespace

bool MasksTouch(const Mask& item, const Mask& container, int dx, int dy, Size seen) {
  const BitPlane& opaque = item.ItemOpaque();
  const BitPlane& solid = container.ContainerSolid();
  const int width = std::min(opaque.Extent().width, seen.width);
  const int top = std::max(0, -dy);
  const int bottom = std::min({opaque.Extent().height, seen.height, solid.Extent().height - dy});
  return BitsMeet(opaque, solid, width, top, bottom, dx, dy);
}

bool HitsContainer(Integer itemLeft, Integer itemTop, Integer containerLeft, Integer containerTop,
                   const PictureBox& itemMask, const PictureBox& containerMask, PictureBox& work) {
  const Integer dx = ToInteger(itemLeft - containerLeft);
  const Integer dy = ToInteger(itemTop - containerTop);
  const Size seen = work.ScaleSize();
  // Nothing is drawn on the work surface, as the masks' bits hold the same; only its size matters to the next test.
  work.Width = itemMask.Width;
  work.Height = itemMask.Height;

  const Mask* item = AsMask(itemMask.PictureObject());
  const Mask* container = AsMask(containerMask.PictureObject());
  if (item == nullptr || container == nullptr) return false;
  return MasksTouch(*item, *container, dx, dy, seen);
}

Rectangle PlacesOverTarget(Size item, int targetLeft, int targetTop, Size target) {
  return Rectangle{-((item.width - 1) / 2), -((item.height - 1) / 2), target.width - item.width / 2,
                   target.height - item.height / 2}
      .Moved(targetLeft, targetTop);
}

bool OverTarget(Integer itemLeft, Integer itemTop, Integer targetLeft, Integer targetTop, const PictureBox& itemMask,
                const PictureBox& targetMask) {
  return PlacesOverTarget(itemMask.ScaleSize(), targetLeft, targetTop, targetMask.ScaleSize())
      .Contains(itemLeft, itemTop);
}

}  // namespace sorvex
