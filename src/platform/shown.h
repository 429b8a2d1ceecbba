// SPDX-License-Identifier: MIT
// What a front end remembers of a control, to know when to show it anew.
#pragma once

#include <optional>

#include "platform/controls.h"

namespace sorvex {

/// The value that is shown of a property.
template <class T>
class Shown {
 public:
  /// True when `value` is not what is shown; from then on it counts as shown.
  bool Take(const T& value) {
    if (value_ == value) return false;
    value_ = value;
    return true;
  }

 private:
  std::optional<T> value_;
};

/// What tells that a surface has another image to show. Drawing on the same image is shown by a refresh.
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
