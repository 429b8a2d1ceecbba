// SPDX-License-Identifier: MIT
// What decoders of every platform have in common.
#include "platform/decode_rgba.h"

#include <algorithm>
#include <string>

#include "base/limits.h"

namespace sorvex {

bool LooksLikeSvg(std::string_view bytes) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  if (bytes.starts_with(mark)) bytes.remove_prefix(mark.size());
  return bytes.substr(std::min(bytes.find_first_not_of(" \t\r\n"), bytes.size())).starts_with('<');
}

Size AllowedSize(std::int64_t width, std::int64_t height, std::int64_t mostPixels) {
  if (width < 1 || height < 1) ThrowUndecodable();
  if (width > kLongestSide || height > kLongestSide || width * height > mostPixels)
    throw PictureError(std::to_string(width) + " x " + std::to_string(height) +
                       " pixels are too many: the pictures and masks of a theme may have " +
                       std::to_string(kMostPixels / 1'000'000) + " million in all, and a side " +
                       std::to_string(kLongestSide));
  return {static_cast<int>(width), static_cast<int>(height)};
}

void ThrowUndecodable() { throw PictureError("cannot be read as a picture; save it again as PNG"); }

}  // namespace sorvex
