// SPDX-License-Identifier: MIT
// A loaded picture: its pixels and, for masks, one bit a pixel for the contact test.
#pragma once

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "base/bitmap.h"

namespace sorvex {

/// One bit a pixel in rows of 64-bit words; pixel x of a row is bit x % 64 of word x / 64, bits beyond the width are 0.
class BitPlane {
 public:
  BitPlane() = default;
  explicit BitPlane(Size size)
      : size_(size),
        wordsPerRow_((size.width + 63) / 64),
        words_(static_cast<std::size_t>(wordsPerRow_ + 2) * static_cast<std::size_t>(size.height)) {}

  Size Extent() const { return size_; }
  int WordsPerRow() const { return wordsPerRow_; }
  /// The first word of row `y`. A word of zeros stands before each row and one behind it.
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

/// What the contact test reads of a mask.
struct MaskBits {
  BitPlane itemOpaque;      ///< set where the mask is exactly black: an item's opaque pixels
  BitPlane containerSolid;  ///< set where the mask's red is below 64: a container's opaque pixels
};

class PictureData {
 public:
  explicit PictureData(std::shared_ptr<const Bitmap> pixels, std::unique_ptr<const MaskBits> mask = nullptr)
      : pixels_(std::move(pixels)), mask_(std::move(mask)) {}

  const Bitmap& Pixels() const { return *pixels_; }
  const std::shared_ptr<const Bitmap>& SharedPixels() const { return pixels_; }
  /// Null for a picture that was not loaded as a mask.
  const MaskBits* Mask() const { return mask_.get(); }

 private:
  std::shared_ptr<const Bitmap> pixels_;
  std::unique_ptr<const MaskBits> mask_;
};

/// A picture object. Two pictures of the same content are different objects: identity is the pointer.
using Picture = std::shared_ptr<const PictureData>;

Picture MakePicture(Bitmap pixels);
/// Another picture object of the same content; the two share their pixels.
Picture MakeTwin(const Picture& picture);
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
