// SPDX-License-Identifier: MIT
// Loaded pictures and the program's built-in pictures.
#pragma once

#include <memory>
#include <utility>

#include "base/bitmap.h"

namespace sorvex {

/// A loaded picture. Derived classes hold data computed from its pixels.
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

/// A picture object; null: no picture. Compared by identity (pointer), not by content.
using Picture = std::shared_ptr<const PictureData>;

Picture MakePicture(Bitmap pixels);
/// A different picture object with the same content; the two share their pixels.
Picture MakeTwin(const Picture& picture);

/// The program's built-in pictures.
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
