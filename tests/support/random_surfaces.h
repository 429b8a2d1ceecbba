// SPDX-License-Identifier: MIT
// Surfaces with random pixels for tests that hold fast paths against plain ones.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <initializer_list>
#include <optional>
#include <random>
#include <span>
#include <string>
#include <utility>

#include "game/mask.h"
#include "platform/controls.h"
#include "support/printers.h"

namespace sorvex {

/// Every color, or those that a mask may hold: mostly black and white, some almost so, some gray.
enum class Colors { Any, MaskLike };

class Random {
 public:
  const unsigned Seed;

  explicit Random(unsigned seed = AnySeed()) : Seed(seed), engine_(seed) {}

  /// Choices are made by these bytes; behind their end they are all the first.
  explicit Random(std::span<const std::uint8_t> choices) : Seed(0), engine_(0), choices_(choices) {}

  int Number(int from, int to) {
    if (!choices_) return std::uniform_int_distribution<int>(from, to)(engine_);
    const int span = to - from + 1;
    int choice = 0;
    for (int reach = 1; reach < span && !choices_->empty(); reach *= 256) {
      choice = choice * 256 + choices_->front();
      choices_ = choices_->subspan(1);
    }
    return from + choice % span;
  }

  template <class T>
  T OneOf(std::initializer_list<T> some) {
    return some.begin()[Number(0, static_cast<int>(some.size()) - 1)];
  }

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
  std::optional<std::span<const std::uint8_t>> choices_;
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
