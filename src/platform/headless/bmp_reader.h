// SPDX-License-Identifier: MIT
// The headless front end's bitmap reader: what tests write, nothing more.
#pragma once

#include <optional>
#include <string_view>

#include "base/bitmap.h"

namespace sorvex {

/// The pixels of an uncompressed bitmap of 24 or 32 bits a pixel (after BITMAPFILEHEADER and BITMAPINFOHEADER,
/// wingdi.h); nullopt for every other form and for rows that are missing.
std::optional<Bitmap> ReadBmp(std::string_view bytes);

}  // namespace sorvex
