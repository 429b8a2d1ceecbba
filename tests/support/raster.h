// SPDX-License-Identifier: MIT
// The raster operations that say what every pixel must be, pixel by pixel as the system's documentation of BitBlt has
// them. Fast paths are held against these.
#pragma once

#include "base/bitmap.h"

namespace sorvex {

enum class RasterOperation { SrcCopy, MergePaint, SrcInvert, SrcAnd };

/// Copies `size` pixels from (sourceX, sourceY) of `source` to (x, y) of `target`. What lies outside either of the two
/// changes nothing.
void BitBlt(Bitmap& target, int x, int y, Size size, const Bitmap& source, int sourceX, int sourceY,
            RasterOperation operation);

/// A picture with its mask, drawn as the game's rules have it.
void DrawInFull(Bitmap& target, int x, int y, Size size, const Bitmap& picture, const Bitmap& mask);

}  // namespace sorvex
