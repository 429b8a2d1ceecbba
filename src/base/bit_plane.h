// SPDX-License-Identifier: MIT
// A bitmap of one bit per pixel.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/rectangle.h"

namespace sorvex {

/// One bit per pixel in rows of 64-bit words: pixel x is bit x % 64 of word x / 64; bits beyond the width are 0.
class BitPlane {
 public:
  BitPlane() = default;
  explicit BitPlane(Size size)
      : size_(size),
        wordsPerRow_((size.width + 63) / 64),
        words_(static_cast<std::size_t>(wordsPerRow_ + 2) * static_cast<std::size_t>(size.height)) {}

  Size Extent() const { return size_; }
  int WordsPerRow() const { return wordsPerRow_; }
  /// The first word of row `y` (from 0 at the top). Each row is padded with a word of zeros before and after it.
  std::uint64_t* Row(int y) { return words_.data() + Offset(y); }
  const std::uint64_t* Row(int y) const { return words_.data() + Offset(y); }

 private:
  std::size_t Offset(int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(wordsPerRow_ + 2) + 1;
  }

  Size size_;
  int wordsPerRow_ = 0;
  std::vector<std::uint64_t> words_;
};

}  // namespace sorvex
