// SPDX-License-Identifier: MIT
// One-pass drawing held against the raster operations that say what every pixel must be.
#include "game/drawing.h"

#include <gtest/gtest.h>

#include <random>

#include "support/random_surfaces.h"
#include "support/raster.h"

namespace sorvex {
namespace {

TEST(Drawing, PixelsAreThoseOfTheTwoRasterOperations) {
  const unsigned seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  Random random(seed);
  for (int round = 0; round < 4000; ++round) {
    PictureBox dest = FixedSurface(random.Bitmap({random.Number(1, 40), random.Number(1, 40)}, Colours::Any));
    const Frame frame = random.Number(0, 1) == 0 ? Frame::Sunken : Frame::Flat;
    const Size size{random.Number(1, 24), random.Number(1, 24)};
    const Size maskSize = random.Number(0, 1) == 0 ? size : Size{random.Number(1, 30), random.Number(1, 30)};
    const auto colours = random.Number(0, 2) == 0 ? Colours::Any : Colours::MaskLike;
    const PictureBox picture = AutoSurface(random.Bitmap(size, Colours::Any), frame);
    const PictureBox mask = AutoSurface(random.Bitmap(maskSize, colours), frame);
    const int x = random.Number(-35, 45);
    const int y = random.Number(-35, 45);

    Bitmap expected = dest.Image();
    BitBlt(expected, x, y, picture.OuterSize(), mask.Image(), 0, 0, RasterOperation::MergePaint);
    BitBlt(expected, x, y, picture.OuterSize(), picture.Image(), 0, 0, RasterOperation::SrcAnd);
    DrawMasked(dest.Drawing(), x, y, picture, mask, dest.Image().Bounds());
    ASSERT_EQ(dest.Image(), expected) << "round " << round << " at " << x << ", " << y;
  }
}

TEST(Drawing, ALargerMaskWhitensTheFrameStripAndNoMore) {
  const struct {
    Frame frame;
    int strip;
  } cases[] = {{Frame::Sunken, 4}, {Frame::Flat, 2}};
  for (const auto& c : cases) {
    PictureBox dest = FixedSurface(Bitmap({30, 30}, 0xFF404040));
    const PictureBox picture = AutoSurface(Bitmap({10, 10}, 0xFF00FF00), c.frame);
    const PictureBox mask = AutoSurface(Bitmap({20, 20}, kBlack), c.frame);
    DrawMasked(dest.Drawing(), 0, 0, picture, mask, dest.Image().Bounds());
    EXPECT_EQ(dest.Image().At(9, 9), 0xFF00FF00);
    EXPECT_EQ(dest.Image().At(10 + c.strip - 1, 0), kWhite);
    EXPECT_EQ(dest.Image().At(10 + c.strip, 0), 0xFF404040);
  }
}

TEST(Drawing, ACopyReachesAsFarAsBothSurfaces) {
  PictureBox dest = FixedSurface(Bitmap({4, 4}, kBlack));
  CopySurface(dest.Drawing(), Bitmap({2, 9}, kWhite), dest.Image().Bounds());
  EXPECT_EQ(dest.Image().At(1, 3), kWhite);
  EXPECT_EQ(dest.Image().At(2, 0), kBlack);
}

}  // namespace
}  // namespace sorvex
