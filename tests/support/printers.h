// SPDX-License-Identifier: MIT
// How a failed expectation shows sizes and pixels.
#pragma once

#include <ostream>

#include "base/bitmap.h"

namespace sorvex {

inline void PrintTo(const Size& size, std::ostream* out) { *out << size.width << " x " << size.height; }
inline void PrintTo(const Bitmap& bitmap, std::ostream* out) {
  *out << "a bitmap of ";
  PrintTo(bitmap.Extent(), out);
}

}  // namespace sorvex
