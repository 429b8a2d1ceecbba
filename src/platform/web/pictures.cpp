// SPDX-License-Identifier: MIT
// Decoding picture files in the browser.
#include <algorithm>

#include "platform/decode_bitmap.h"
#include "platform/web/page.h"

namespace sorvex {

Bitmap DecodedByPage(const void* bytes, std::size_t size) {
  PageData picture;
  if (PageAwait(PageRequest::Decode, bytes, static_cast<int>(size), &picture) == 0) return {};
  const Allocated<void> freed(picture.bytes);
  const auto* pixels = static_cast<const Pixel*>(picture.bytes);
  Bitmap bitmap = Bitmap::Uninitialized({picture.width, picture.height});
  std::transform(pixels, pixels + bitmap.Pixels().size(), bitmap.Row(0),
                 [](Pixel pixel) { return Swapped(pixel) | kBlack; });
  return bitmap;
}

std::optional<Bitmap> DecodeBitmap(std::string_view bytes) {
  Bitmap bitmap = DecodedByPage(bytes.data(), bytes.size());
  return bitmap.Bounds().Empty() ? std::nullopt : std::optional(std::move(bitmap));
}

}  // namespace sorvex
