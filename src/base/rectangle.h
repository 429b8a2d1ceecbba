// SPDX-License-Identifier: MIT
// Sizes and rectangles in whole pixels. Rectangles are half-open: right and bottom are exclusive.
#pragma once

#include <algorithm>

namespace sorvex {

struct Size {
  int width = 0;
  int height = 0;
  constexpr bool operator==(const Size&) const = default;
};

struct Rectangle {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  /// The rectangle of `size` whose top-left corner is (left, top).
  static constexpr Rectangle At(int left, int top, Size size) {
    return {left, top, left + size.width, top + size.height};
  }

  constexpr int Width() const { return right - left; }
  constexpr int Height() const { return bottom - top; }
  constexpr bool Empty() const { return right <= left || bottom <= top; }
  constexpr bool Contains(int x, int y) const { return x >= left && x < right && y >= top && y < bottom; }
  constexpr Rectangle Moved(int dx, int dy) const { return {left + dx, top + dy, right + dx, bottom + dy}; }
  constexpr bool operator==(const Rectangle&) const = default;
};

/// The common part; Empty() if there is none.
constexpr Rectangle Intersection(const Rectangle& a, const Rectangle& b) {
  return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
}

}  // namespace sorvex
