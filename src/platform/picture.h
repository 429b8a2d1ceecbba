// SPDX-License-Identifier: MIT
// Loaded pictures and those that ship inside the program.
#pragma once

#include <memory>
#include <utility>

#include "base/bitmap.h"

namespace sorvex {

/// A loaded picture. Who wants to keep more about one derives a class from it.
class PictureData {
 public:
  explicit PictureData(std::shared_ptr<const Bitmap> pixels) : pixels_(std::move(pixels)) {}
  virtual ~PictureData() = default;
  PictureData(const PictureData&) = delete;
  PictureData& operator=(const PictureData&) = delete;

  const Bitmap& Pixels() const { return *pixels_; }
  const std::shared_ptr<const Bitmap>& SharedPixels() const { return pixels_; }

 private:
  std::shared_ptr<const Bitmap> pixels_;
};

/// A picture object. Two pictures of the same content are different objects: identity is the pointer.
using Picture = std::shared_ptr<const PictureData>;

Picture MakePicture(Bitmap pixels);
/// Another picture object of the same content; the two share their pixels.
Picture MakeTwin(const Picture& picture);

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
