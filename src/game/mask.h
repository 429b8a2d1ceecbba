// SPDX-License-Identifier: MIT
// A mask: a picture with the two one-bit-per-pixel bitmaps that the contact test reads.
#pragma once

#include "base/bit_plane.h"
#include "platform/picture.h"

namespace sorvex {

class Mask final : public PictureData {
 public:
  explicit Mask(Bitmap pixels);

  /// A bit is set where the mask is exactly black: the opaque pixels of an item.
  const BitPlane& ItemOpaque() const { return itemOpaque_; }
  /// A bit is set where the mask's red is below 64: the opaque pixels of a container.
  const BitPlane& ContainerSolid() const { return containerSolid_; }

 private:
  BitPlane itemOpaque_;
  BitPlane containerSolid_;
};

Picture MakeMask(Bitmap pixels);
/// The picture as a Mask; null if `picture` is null or was not made by MakeMask.
const Mask* AsMask(const Picture& picture);

}  // namespace sorvex
