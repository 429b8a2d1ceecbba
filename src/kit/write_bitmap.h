// SPDX-License-Identifier: MIT
// Encoding Windows bitmaps as themes have them.
#pragma once

#include <string>

#include "base/bitmap.h"

namespace sorvex {

/// The bytes of a bitmap file with 24 bits a pixel.
std::string EncodePicture(const Bitmap& picture);
/// The bytes of a bitmap file with a bit a pixel, for bitmaps that have black and white pixels only.
std::string EncodeMask(const Bitmap& mask);

}  // namespace sorvex
