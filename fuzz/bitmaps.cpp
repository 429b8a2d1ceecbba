// SPDX-License-Identifier: MIT
// The check of a bitmap's headers, and the system's reader behind it.
#include <string>

#include "fuzzing.h"
#include "platform/decode_bitmap.h"
#include "themes/bitmap_check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace sorvex;
  const std::string_view file = AsText(data, size);
  const std::optional<DeclaredBitmap> declared = ReadBitmapHeaders(file);
  const std::optional<Size> extent = DeclaredSize(file);
  if (!declared || !extent) return 0;
  Require(extent == declared->size);
  if (extent->width > 4000 || extent->height > 1000) return 0;  // as good as any, and slow
  std::string bytes(file.substr(0, static_cast<std::size_t>(declared->mostBytes)));
  CompleteBitmap(bytes);
  const std::optional<Bitmap> bitmap = DecodeBitmap(bytes);
  if (!bitmap) return 0;
  Require(bitmap->Extent() == *extent);
  for (const Pixel pixel : bitmap->Pixels()) Require((pixel | 0xFFFFFF) == 0xFFFFFFFF);
  return 0;
}
