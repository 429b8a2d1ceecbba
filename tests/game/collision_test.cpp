// SPDX-License-Identifier: MIT
// The contact test on bits held against the raster procedure that defines it, and the placement test's edges.
#include "game/collision.h"

#include <gtest/gtest.h>

#include <random>

#include "base/runtime_error.h"
#include "support/printers.h"
#include "support/random_surfaces.h"
#include "support/raster.h"

namespace sorvex {
namespace {

constexpr Pixel kWorkColour = 0xFFC00000;

PictureBox WorkSurface(Size drawingArea) {
  PictureBox work;
  work.Background = kWorkColour;
  work.Resize(static_cast<float>(drawingArea.width + 4), static_cast<float>(drawingArea.height + 4));
  return work;
}

// The defining procedure: compose on the work surface with raster operations, then look for a white pixel.
bool ContactByRasterOperations(int dx, int dy, const PictureBox& itemMask, const PictureBox& containerMask,
                               Bitmap& work) {
  Bitmap inverted({277, 261}, kWhite);
  work = Bitmap(work.Extent(), kWorkColour);
  const Size container = containerMask.OuterSize();
  const Size item = itemMask.OuterSize();
  BitBlt(work, 0, 0, container, containerMask.Image(), dx, dy, RasterOperation::MergePaint);
  BitBlt(work, 0, 0, container, containerMask.Image(), dx, dy, RasterOperation::SrcInvert);
  BitBlt(inverted, 0, 0, item, itemMask.Image(), 0, 0, RasterOperation::SrcInvert);
  BitBlt(work, 0, 0, item, inverted, 0, 0, RasterOperation::MergePaint);
  BitBlt(work, 0, 0, item, inverted, 0, 0, RasterOperation::SrcAnd);
  Bitmap resized(itemMask.ScaleSize(), kWorkColour);
  BitBlt(resized, 0, 0, resized.Extent(), work, 0, 0, RasterOperation::SrcCopy);
  work = resized;
  for (const Pixel pixel : work.Pixels())
    if (pixel == kWhite) return true;
  return false;
}

// An item is at most as much larger than its container as the raster procedure's copies reach beyond it.
TEST(Contact, IsWhatTheRasterProcedureFinds) {
  const unsigned seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  Random random(seed);
  int contacts = 0;
  for (int series = 0; series < 400; ++series) {
    PictureBox work = WorkSurface({61, 69});
    Bitmap plainWork({61, 69}, kWorkColour);
    for (int round = 0; round < 10; ++round) {
      const Size container{random.Number(1, 140), random.Number(1, 30)};
      const PictureBox containerMask = AutoSurface(random.Bitmap(container, Colours::MaskLike));
      const Size item{random.Number(1, container.width + 4), random.Number(1, container.height + 4)};
      Bitmap shape(item, kWhite);
      for (int dots = random.Number(0, 6); dots > 0; --dots)
        shape.Row(random.Number(0, item.height - 1))[random.Number(0, item.width - 1)] =
            random.Number(0, 1) == 0 ? kBlack : random.MaskPixel();
      const PictureBox itemMask = AutoSurface(std::move(shape));
      const int dx = random.Number(-item.width - 3, container.width + 3);
      const int dy = random.Number(-item.height - 3, container.height + 3);

      const bool expected = ContactByRasterOperations(dx, dy, itemMask, containerMask, plainWork);
      const auto left = static_cast<Integer>(random.Number(-300, 300));
      const auto top = static_cast<Integer>(random.Number(-300, 300));
      ASSERT_EQ(HitsContainer(static_cast<Integer>(left + dx), static_cast<Integer>(top + dy), left, top, itemMask,
                              containerMask, work),
                expected)
          << "series " << series << " round " << round << " distance " << dx << ", " << dy;
      ASSERT_EQ(work.ScaleSize(), plainWork.Extent());
      contacts += expected ? 1 : 0;
    }
  }
  EXPECT_GT(contacts, 200) << "too few contacts to mean anything";
  EXPECT_LT(contacts, 3800);
}

TEST(Contact, NeedsOneOverlappingPairOfOpaquePixels) {
  const PictureBox item = AutoSurface(Bitmap({1, 1}, kBlack));
  Bitmap shape({8, 8}, kWhite);
  shape.Row(3)[5] = kBlack;
  const PictureBox container = AutoSurface(shape);
  PictureBox work = WorkSurface({61, 69});
  for (Integer y = -2; y < 10; ++y)
    for (Integer x = -2; x < 10; ++x)
      EXPECT_EQ(HitsContainer(x, y, 0, 0, item, container, work), x == 5 && y == 3) << x << ", " << y;
}

TEST(Contact, TheFirstTestOfALargerItemSeesOnlyTheSizeBefore) {
  const PictureBox small = AutoSurface(Bitmap({10, 10}, kWhite));
  Bitmap shape({20, 20}, kWhite);
  shape.Row(15)[15] = kBlack;
  const PictureBox large = AutoSurface(shape);
  const PictureBox container = AutoSurface(Bitmap({30, 30}, kBlack));
  PictureBox work = WorkSurface({61, 69});
  EXPECT_FALSE(HitsContainer(0, 0, 0, 0, small, container, work));
  EXPECT_FALSE(HitsContainer(0, 0, 0, 0, large, container, work));
  EXPECT_TRUE(HitsContainer(0, 0, 0, 0, large, container, work));
}

TEST(Contact, ADistanceBeyondAnIntegerIsAnOverflow) {
  const PictureBox mask = AutoSurface(Bitmap({2, 2}, kBlack));
  PictureBox work = WorkSurface({61, 69});
  EXPECT_THROW(HitsContainer(30000, 0, -30000, 0, mask, mask, work), RuntimeError);
  EXPECT_THROW(HitsContainer(0, -30000, 0, 30000, mask, mask, work), RuntimeError);
}

TEST(Placement, NeedsTheCentreStrictlyInsideTheTarget) {
  const PictureBox target = AutoSurface(Bitmap({40, 30}), Frame::Flat);
  const struct {
    Size item;
    int left, top;
    bool over;
  } cases[] = {
      {{14, 12}, 93, 110, false},                               // centre on the left edge line
      {{14, 12}, 94, 110, true},  {{14, 12}, 133, 110, false},  // on the right one
      {{14, 12}, 132, 110, true}, {{14, 12}, 110, 94, false},   // on the top one
      {{14, 12}, 110, 95, true},  {{14, 12}, 110, 124, false},  // on the bottom one
      {{14, 12}, 110, 123, true}, {{15, 13}, 93, 94, true},     // half a pixel inside both
  };
  for (const auto& c : cases) {
    const PictureBox item = AutoSurface(Bitmap(c.item));
    EXPECT_EQ(OverTarget(static_cast<Integer>(c.left), static_cast<Integer>(c.top), 100, 100, item, target), c.over)
        << c.left << ", " << c.top;
  }
}

}  // namespace
}  // namespace sorvex
