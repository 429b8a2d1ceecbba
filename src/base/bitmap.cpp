// SPDX-License-Identifier: MIT
// Copying pixels between surfaces.
#include "base/bitmap.h"

#include <algorithm>
#include <cstring>

namespace sorvex {
namespace {

void CopyRow(Pixel* to, const Pixel* from, int count) {
  std::memcpy(to, from, static_cast<std::size_t>(count) * sizeof(Pixel));
}

}  // namespace

bool IsOpaque(const Bitmap& bitmap) {
  return std::all_of(bitmap.Pixels().begin(), bitmap.Pixels().end(), [](Pixel pixel) { return pixel >= kBlack; });
}

void CopySurface(Bitmap& dest, const Bitmap& source, const Rectangle& clip) {
  const Rectangle area = Intersection(Intersection(dest.Bounds(), source.Bounds()), clip);
  if (area.Empty()) return;
  if (area == dest.Bounds() && area == source.Bounds()) {
    CopyRow(dest.Row(0), source.Row(0), area.Width() * area.Height());
    return;
  }
  for (int row = area.top; row < area.bottom; ++row)
    CopyRow(dest.Row(row) + area.left, source.Row(row) + area.left, area.Width());
}

}  // namespace sorvex
