// SPDX-License-Identifier: MIT
// Pixel memory as Qt's images, and images as pixel memory.
#pragma once

#include <QImage>

#include "base/bitmap.h"

namespace sorvex {

/// Qt's view of the pixels; it reads, and may write, the memory of `bitmap`, which must outlive it.
QImage ViewOf(const Bitmap& bitmap);
QImage ViewOf(Bitmap& bitmap);
/// A copy of the image's colours; its transparency is dropped.
Bitmap CopyOf(const QImage& image);

}  // namespace sorvex
