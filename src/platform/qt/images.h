// SPDX-License-Identifier: MIT
// Conversion between Bitmap and QImage.
#pragma once

#include <QImage>

#include "base/bitmap.h"

namespace sorvex {

/// A QImage that shares the memory of `bitmap`, which must outlive it; writing to the image writes to the bitmap.
QImage ViewOf(const Bitmap& bitmap);
QImage ViewOf(Bitmap& bitmap);
/// A copy of the image; transparency is dropped.
Bitmap CopyOf(const QImage& image);

}  // namespace sorvex
