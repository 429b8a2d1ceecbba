// SPDX-License-Identifier: MIT
// Surfaces with random pixels for tests that hold fast paths against plain ones.
#pragma once

#include <random>
#include <utility>

#include "platform/controls.h"
#include "platform/picture.h"
#include "support/printers.h"

namespace sorvex {

/// Every colour, or those that a mask may hold: mostly black and white, some almost so, some grey.
enum class Colours { Any, MaskLike };

class Random {
 public:
  const unsigned Seed;

  explicit Random(unsigned seed = std::random_device{}()) : Seed(seed), engine_(seed) {}

  int Number(int from, int to) { return std::uniform_int_distribution<int>(from, to)(engine_); }

  sorvex::Bitmap Bitmap(Size size, Colours colours) {
    sorvex::Bitmap bitmap(size);
    for (int y = 0; y < size.height; ++y)
      for (int x = 0; x < size.width; ++x)
        bitmap.Row(y)[x] = colours == Colours::Any ? kBlack | static_cast<Pixel>(engine_()) : MaskPixel();
    return bitmap;
  }

  Pixel MaskPixel() {
    static constexpr Pixel kRare[] = {0xFF010000, 0xFF3FFFFF, 0xFF400000, 0xFF808080,
                                      0xFF00FFFF, 0xFFFF0000, 0xFFFEFFFF};
    const int draw = Number(0, 19);
    if (draw < 7) return kRare[draw];
    return draw < 12 ? kBlack : kWhite;
  }

 private:
  std::mt19937 engine_;
};

/// A surface of the toolkit's usual kind that takes the size of its picture.
inline PictureBox AutoSurface(Bitmap pixels, Frame frame = Frame::Sunken) {
  PictureBox surface;
  surface.BorderStyle = frame;
  surface.AutoSize = true;
  surface.SetPicture(MakeMask(std::move(pixels)));
  return surface;
}

/// A surface with a drawing area of its own that holds `pixels`.
inline PictureBox FixedSurface(Bitmap pixels) {
  PictureBox surface;
  const int frame = 2 * FrameWidth(surface.BorderStyle);
  surface.Resize(static_cast<float>(pixels.Width() + frame), static_cast<float>(pixels.Height() + frame));
  surface.Drawing() = std::move(pixels);
  return surface;
}

}  // namespace sorvex
