// SPDX-License-Identifier: MIT
// PNG files as the system's own writer writes them. Each front end brings this function; it needs no desktop.
#pragma once

#include <string>

#include "base/bitmap.h"

namespace sorvex {

/// The bytes of a PNG file that holds the bitmap, which has at least one pixel. Throws OutOfMemory (7) when the
/// system's writer fails.
std::string EncodePng(const Bitmap& bitmap);

}  // namespace sorvex
