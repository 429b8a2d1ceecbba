// SPDX-License-Identifier: MIT
// Four raster operations, one pixel at a time.
#include "support/raster.h"

namespace sorvex {
namespace {

Pixel Apply(RasterOperation operation, Pixel source, Pixel target) {
  switch (operation) {
    case RasterOperation::SrcCopy: return source;
    case RasterOperation::MergePaint: return ~source | target;
    case RasterOperation::SrcInvert: return source ^ target;
    case RasterOperation::SrcAnd: return source & target;
  }
  return target;
}

}  // namespace

void BitBlt(Bitmap& target, int x, int y, Size size, const Bitmap& source, int sourceX, int sourceY,
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

void DrawInFull(Bitmap& target, int x, int y, Size size, const Bitmap& picture, const Bitmap& mask) {
  BitBlt(target, x, y, size, mask, 0, 0, RasterOperation::MergePaint);
  BitBlt(target, x, y, size, picture, 0, 0, RasterOperation::SrcAnd);
}

}  // namespace sorvex
