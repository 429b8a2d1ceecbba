// SPDX-License-Identifier: MIT
// Rendering SVG pictures with librsvg.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/bitmap.h"

namespace sorvex {

/// DecodeRgba (platform/decode_rgba.h) for SVG: the picture at its own size, 96 pixels to the inch. Files that it links
/// are not read.
Bitmap RenderSvg(std::string_view bytes, std::int64_t mostPixels);

}  // namespace sorvex
