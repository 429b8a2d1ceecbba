// SPDX-License-Identifier: MIT
// One-pass drawing held against the raster operations that say what every pixel must be.
#include "game/drawing.h"

#include <gtest/gtest.h>

#include "support/random_surfaces.h"
#include "support/raster.h"

namespace sorvex {
namespace {

// A mask larger than its picture whitens a strip as wide as the picture's frames.
TEST(Drawing, PixelsAreThoseOfTheTwoRasterOperations) {
  Random random;
  SCOPED_TRACE(random.Seed);
  for (int round = 0; round < 4000; ++round) {
    PictureBox dest = FixedSurface(random.Bitmap({random.Number(1, 40), random.Number(1, 40)}, Colors::Any));
    const Frame frame = random.Number(0, 1) == 0 ? Frame::Sunken : Frame::Flat;
    const Size size{random.Number(1, 24), random.Number(1, 24)};
    const Size maskSize = random.Number(0, 1) == 0 ? size : Size{random.Number(1, 30), random.Number(1, 30)};
    const auto colors = random.Number(0, 2) == 0 ? Colors::Any : Colors::MaskLike;
    const PictureBox picture = AutoSurface(random.Bitmap(size, Colors::Any), frame);
    const PictureBox mask = AutoSurface(random.Bitmap(maskSize, colors), frame);
    const int x = random.Number(-35, 45);
    const int y = random.Number(-35, 45);

    Bitmap expected = dest.Image();
    DrawInFull(expected, x, y, picture.OuterSize(), picture.Image(), mask.Image());
    DrawMasked(dest.Drawing(), x, y, picture, mask, dest.Image().Bounds());
    ASSERT_EQ(dest.Image(), expected) << "round " << round << " at " << x << ", " << y;
  }
}

}  // namespace
}  // namespace sorvex
