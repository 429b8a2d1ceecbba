// SPDX-License-Identifier: MIT
// A mask: a picture that also holds, one bit a pixel, what the contact test reads of it.
#pragma once

#include "base/bit_plane.h"
#include "platform/picture.h"

namespace sorvex {

class Mask final : public PictureData {
 public:
  explicit Mask(Bitmap pixels);

  /// Set where the mask is exactly black: an item's opaque pixels.
  const BitPlane& ItemOpaque() const { return itemOpaque_; }
  /// Set where the mask's red is below 64: a container's opaque pixels.
  const BitPlane& ContainerSolid() const { return containerSolid_; }

 private:
  BitPlane itemOpaque_;
  BitPlane containerSolid_;
};

Picture MakeMask(Bitmap pixels);
/// Null where there is no picture, or one that was not made as a mask.
const Mask* AsMask(const Picture& picture);

}  // namespace sorvex
