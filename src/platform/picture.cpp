// SPDX-License-Identifier: MIT
// Making picture objects.
#include "platform/picture.h"

namespace sorvex {

Picture MakePicture(Bitmap pixels) {
  return std::make_shared<const PictureData>(std::make_shared<const Bitmap>(std::move(pixels)));
}

Picture MakeTwin(const Picture& picture) { return std::make_shared<const PictureData>(picture->SharedPixels()); }

}  // namespace sorvex
