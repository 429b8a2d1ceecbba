// SPDX-License-Identifier: MIT
// The raster operations that say what every pixel must be, pixel by pixel as the system's documentation of BitBlt has
// them. Fast paths are held against these.
#pragma once

#include <algorithm>

#include "base/bitmap.h"

namespace sorvex {

inline constexpr int kSunken = 2;  ///< the frame of a surface, a side
inline constexpr int kFlat = 1;

inline Size Outer(const Bitmap& picture, int frame) {
  return {picture.Width() + 2 * frame, picture.Height() + 2 * frame};
}

enum class RasterOperation { SrcCopy, MergePaint, SrcInvert, SrcAnd };

inline Pixel Apply(RasterOperation operation, Pixel source, Pixel target) {
  switch (operation) {
    case RasterOperation::SrcCopy: return source;
    case RasterOperation::MergePaint: return ~source | target;
    case RasterOperation::SrcInvert: return source ^ target;
    case RasterOperation::SrcAnd: return source & target;
  }
  return target;
}

/// Copies `size` pixels from (sourceX, sourceY) of `source` to (x, y) of `target`. What lies outside either of the two
/// changes nothing.
inline void BitBlt(Bitmap& target, int x, int y, Size size, const Bitmap& source, int sourceX, int sourceY,
                   RasterOperation operation) {
  for (int row = 0; row < size.height; ++row) {
    for (int column = 0; column < size.width; ++column) {
      if (!source.Bounds().Contains(sourceX + column, sourceY + row)) continue;
      if (!target.Bounds().Contains(x + column, y + row)) continue;
      Pixel& pixel = target.Row(y + row)[x + column];
      pixel = kBlack | Apply(operation, source.At(sourceX + column, sourceY + row), pixel);
    }
  }
}

/// A picture with its mask, drawn as the game's rules have it.
inline void DrawInFull(Bitmap& target, int x, int y, Size size, const Bitmap& picture, const Bitmap& mask) {
  BitBlt(target, x, y, size, mask, 0, 0, RasterOperation::MergePaint);
  BitBlt(target, x, y, size, picture, 0, 0, RasterOperation::SrcAnd);
}

inline constexpr Pixel kWorkColor = 0xFFC00000;

/// The contact test as raster operations have it: composes on `work`, which then takes the item mask's size, and looks
/// for a white pixel. The item stands (dx, dy) from its container.
/// Two limits of the procedure are not the game's and left out here: that copies end 4 pixels beyond the container's
/// size, and that the second work surface has a size of its own.
inline bool ContactByRasterOperations(int dx, int dy, const Bitmap& itemMask, const Bitmap& containerMask,
                                      Bitmap& work) {
  const Size item = Outer(itemMask, kSunken);
  Bitmap inverted(item, kWhite);
  work = Bitmap(work.Extent(), kWorkColor);
  BitBlt(work, 0, 0, work.Extent(), containerMask, dx, dy, RasterOperation::MergePaint);
  BitBlt(work, 0, 0, work.Extent(), containerMask, dx, dy, RasterOperation::SrcInvert);
  BitBlt(inverted, 0, 0, item, itemMask, 0, 0, RasterOperation::SrcInvert);
  BitBlt(work, 0, 0, item, inverted, 0, 0, RasterOperation::MergePaint);
  BitBlt(work, 0, 0, item, inverted, 0, 0, RasterOperation::SrcAnd);
  Bitmap resized(itemMask.Extent(), kWorkColor);
  BitBlt(resized, 0, 0, resized.Extent(), work, 0, 0, RasterOperation::SrcCopy);
  work = std::move(resized);
  return std::ranges::count(work.Pixels(), kWhite) > 0;
}

}  // namespace sorvex
