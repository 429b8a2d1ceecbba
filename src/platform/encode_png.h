// SPDX-License-Identifier: MIT
// Encoding PNG files with the platform's own encoder. Each front end implements this function; it works without a
// Desktop.
#pragma once

#include <string>

#include "base/bitmap.h"

namespace sorvex {

/// The bitmap, which must have at least one pixel, as the bytes of a PNG file; with an alpha channel if an alpha byte
/// is not FF. Throws OutOfMemory (7) if the encoder fails.
std::string EncodePng(const Bitmap& bitmap);

}  // namespace sorvex
