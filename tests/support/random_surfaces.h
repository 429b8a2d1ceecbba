// SPDX-License-Identifier: MIT
// Surfaces with random pixels for tests that hold fast paths against plain ones.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <random>
#include <string>
#include <utility>

#include "game/mask.h"
#include "platform/controls.h"
#include "support/printers.h"

namespace sorvex {

/// Every colour, or those that a mask may hold: mostly black and white, some almost so, some grey.
enum class Colors { Any, MaskLike };

class Random {
 public:
  const unsigned Seed;

  explicit Random(unsigned seed = AnySeed()) : Seed(seed), engine_(seed) {}

  int Number(int from, int to) { return std::uniform_int_distribution<int>(from, to)(engine_); }

  sorvex::Bitmap Bitmap(Size size, Colors colors) {
    sorvex::Bitmap bitmap(size);
    for (int y = 0; y < size.height; ++y)
      for (int x = 0; x < size.width; ++x)
        bitmap.Row(y)[x] = colors == Colors::Any ? kBlack | static_cast<Pixel>(engine_()) : MaskPixel();
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
  // A seed that a failed test printed can be played again through the environment variable SORVEX_SEED.
  static unsigned AnySeed() {
    const char* wanted = std::getenv("SORVEX_SEED");
    return wanted != nullptr ? static_cast<unsigned>(std::stoul(wanted)) : std::random_device{}();
  }

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

/// An item near its container, the item at most 4 pixels larger and within 277 x 261: what the raster procedure of the
/// contact test can tell.
struct RandomContact {
  RandomContact(Random& random, Size largestContainer)
      : containerMask(AutoSurface(random.Bitmap(
            {random.Number(1, largestContainer.width), random.Number(1, largestContainer.height)}, Colors::MaskLike))) {
    const Size container = containerMask.ScaleSize();
    const Size item{random.Number(1, std::min(container.width + 4, 277)),
                    random.Number(1, std::min(container.height + 4, 261))};
    Bitmap shape(item, kWhite);
    for (int dots = random.Number(0, 6); dots > 0; --dots)
      shape.Row(random.Number(0, item.height - 1))[random.Number(0, item.width - 1)] =
          random.Number(0, 1) == 0 ? kBlack : random.MaskPixel();
    itemMask = AutoSurface(std::move(shape));
    dx = random.Number(-item.width - 3, container.width + 3);
    dy = random.Number(-item.height - 3, container.height + 3);
  }

  PictureBox itemMask;
  PictureBox containerMask;
  int dx = 0;  ///< how far the item stands to the right of its container
  int dy = 0;
};

/// A surface with a drawing area of its own that holds `pixels`.
inline PictureBox FixedSurface(Bitmap pixels) {
  PictureBox surface;
  const int frame = 2 * FrameWidth(surface.BorderStyle);
  surface.Resize(static_cast<float>(pixels.Width() + frame), static_cast<float>(pixels.Height() + frame));
  surface.Drawing() = std::move(pixels);
  return surface;
}

}  // namespace sorvex
