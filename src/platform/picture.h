// SPDX-License-Identifier: MIT
// A loaded picture: its pixels and, for masks, one bit a pixel for the contact test.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "base/bitmap.h"

namespace sorvex {

/// One bit a pixel in rows of 64-bit words; pixel x of a row is bit x % 64 of word x / 64, bits beyond the width are 0.
class BitPlane {
 public:
  BitPlane() = default;
  explicit BitPlane(Size size)
      : size_(size),
        wordsPerRow_(static_cast<std::size_t>((size.width + 63) / 64)),
        words_(wordsPerRow_ * static_cast<std::size_t>(size.height)) {}

  Size Extent() const { return size_; }
  void Set(int x, int y) { Word(x / 64, y) |= std::uint64_t{1} << (x % 64); }
  std::span<const std::uint64_t> Row(int y) const {
    return {words_.data() + static_cast<std::size_t>(y) * wordsPerRow_, wordsPerRow_};
  }

 private:
  std::uint64_t& Word(int word, int y) {
    return words_[static_cast<std::size_t>(y) * wordsPerRow_ + static_cast<std::size_t>(word)];
  }

  Size size_;
  std::size_t wordsPerRow_ = 0;
  std::vector<std::uint64_t> words_;
};

/// What the contact test reads of a mask.
struct MaskBits {
  BitPlane itemOpaque;      ///< set where the mask is exactly black: an item's opaque pixels
  BitPlane containerSolid;  ///< set where the mask's red is below 64: a container's opaque pixels
};

struct PictureData {
  Bitmap pixels;
  std::unique_ptr<const MaskBits> mask;  ///< null for a picture that was not loaded as a mask
};

/// A picture object. Two pictures of the same content are different objects: identity is the pointer.
using Picture = std::shared_ptr<const PictureData>;

Picture MakePicture(Bitmap pixels);
/// A picture whose mask bits are worked out as well.
Picture MakeMask(Bitmap pixels);

/// The pictures that ship inside the program.
enum class BuiltIn {
  None,
  WindowIcon,
  HighScoresPanel,
  Canvas,
  FolderIcon,
  AboutIcon,
  InfoHandCursor,
  LinkHandCursor,
  Logo,
};

}  // namespace sorvex
