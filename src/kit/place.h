// SPDX-License-Identifier: MIT
// A place on the play field or on a picture, and how findings name it.
#pragma once

#include <string>

namespace sorvex {

/// In whole pixels from the top-left corner.
struct Place {
  int x = 0;
  int y = 0;
  constexpr bool operator==(const Place&) const = default;
};

/// "(4, 5)"
inline std::string Said(Place place) { return "(" + std::to_string(place.x) + ", " + std::to_string(place.y) + ")"; }
/// "1 pixel", "3 pixels"
inline std::string CountedPixels(int count) { return std::to_string(count) + (count == 1 ? " pixel" : " pixels"); }

}  // namespace sorvex
