// SPDX-License-Identifier: MIT
// Making picture objects, with the bits that the contact test reads.
#include "platform/picture.h"

#include <utility>

namespace sorvex {

Picture MakePicture(Bitmap pixels) {
  return std::make_shared<const PictureData>(std::make_shared<const Bitmap>(std::move(pixels)));
}

Picture MakeTwin(const Picture& picture) { return std::make_shared<const PictureData>(picture->SharedPixels()); }

Picture MakeMask(Bitmap pixels) {
  auto bits = std::make_unique<MaskBits>(MaskBits{BitPlane(pixels.Extent()), BitPlane(pixels.Extent())});
  for (int y = 0; y < pixels.Height(); ++y) {
    const Pixel* row = pixels.Row(y);
    for (int x = 0; x < pixels.Width(); ++x) {
      if (row[x] == kBlack) bits->itemOpaque.Set(x, y);
      if ((row[x] & 0xC00000) == 0) bits->containerSolid.Set(x, y);
    }
  }
  return std::make_shared<const PictureData>(std::make_shared<const Bitmap>(std::move(pixels)), std::move(bits));
}

}  // namespace sorvex
