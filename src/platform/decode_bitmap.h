// SPDX-License-Identifier: MIT
// Decoding bitmap files with the platform's own decoder. Each front end implements this function; it works without a
// Desktop.
#pragma once

#include <optional>
#include <string_view>

#include "base/bitmap.h"

namespace sorvex {

/// Decodes the bytes of a bitmap file; transparency is dropped, and pixels skipped by run-length encoding are black.
/// nullopt if the decoder fails. Decoders trust declared sizes, so validate the headers first (themes/bitmap_check.h).
std::optional<Bitmap> DecodeBitmap(std::string_view bytes);

}  // namespace sorvex
