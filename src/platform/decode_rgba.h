// SPDX-License-Identifier: MIT
// Decoding pictures with transparency, for the theme kit. Each front end implements DecodeRgba; it works without a
// Desktop.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string_view>

#include "base/bitmap.h"

namespace sorvex {

/// Why a picture cannot be used, in words for the one who made it.
class PictureError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Decodes the bytes of a picture file: PNG, what else the platform reads, and on Linux SVG. Unlike other bitmaps the
/// result has an alpha byte from 0 (transparent) to FF, by which its colors are not multiplied. Throws PictureError if
/// the picture cannot be decoded or has more than `mostPixels` pixels, before memory is taken for them.
Bitmap DecodeRgba(std::string_view bytes, std::int64_t mostPixels);

// For the implementations.

/// True if a file begins like XML, which of all pictures only SVG does.
bool LooksLikeSvg(std::string_view bytes);
/// The size that a picture declares, if it is from 1 to kLongestSide pixels each way and `mostPixels` in all; else
/// throws PictureError.
Size AllowedSize(std::int64_t width, std::int64_t height, std::int64_t mostPixels);
[[noreturn]] void ThrowUndecodable();

}  // namespace sorvex
