// SPDX-License-Identifier: MIT
// How a failed expectation shows pixels and boxes.
#pragma once

#include <ostream>

#include "base/bitmap.h"
#include "platform/headless/headless_desktop.h"

namespace sorvex {

inline void PrintTo(const Size& size, std::ostream* out) { *out << size.width << " x " << size.height; }
inline void PrintTo(const Bitmap& bitmap, std::ostream* out) {
  *out << "a bitmap of ";
  PrintTo(bitmap.Extent(), out);
}
inline void PrintTo(const HeadlessDesktop::Box& box, std::ostream* out) {
  *out << "[" << box.title << "] " << box.text << " (icon " << static_cast<int>(box.icon) << ")";
}

}  // namespace sorvex
