// SPDX-License-Identifier: MIT
// What a front end remembers about a control to detect changes.
#pragma once

#include <optional>

#include "platform/controls.h"

namespace sorvex {

/// The last shown value of a property.
template <class T>
class ShownValue {
 public:
  /// Stores `value` and returns whether it differs from the last one. The first value always does.
  bool Update(const T& value) {
    if (value_ == value) return false;
    value_ = value;
    return true;
  }

 private:
  std::optional<T> value_;
};

/// Identifies the image that a surface shows. Drawing on the same image changes nothing here; Refresh shows it.
struct SurfaceLook {
  const Pixel* pixels;
  const PictureData* picture;
  Size size;
  Color background;
  bool operator==(const SurfaceLook&) const = default;
};

inline SurfaceLook LookOf(const PictureBox& surface) {
  const Bitmap& image = surface.Image();
  return {image.Pixels().data(), surface.PictureObject().get(), image.Extent(), surface.BackColor};
}

}  // namespace sorvex
