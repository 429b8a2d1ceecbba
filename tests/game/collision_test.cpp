// SPDX-License-Identifier: MIT
// The contact test on bits held against the raster procedure that defines it, and the placement test's edges.
#include "game/collision.h"

#include <gtest/gtest.h>

#include "support/random_surfaces.h"
#include "support/rules_model.h"

namespace sorvex {
namespace {

constexpr Pixel kWorkColor = 0xFFC00000;
constexpr Size kDesigned{61, 69};

PictureBox WorkSurface() {
  PictureBox work;
  work.Background = kWorkColor;
  work.Resize(kDesigned.width + 4, kDesigned.height + 4);
  return work;
}

// The work surface is kept from test to test: the first of a larger item sees only the size before.
TEST(Contact, IsWhatTheRasterProcedureFinds) {
  Random random;
  SCOPED_TRACE(random.Seed);
  int contacts = 0;
  for (int series = 0; series < 400; ++series) {
    PictureBox work = WorkSurface();
    Bitmap plainWork(kDesigned, kWorkColor);
    for (int round = 0; round < 10; ++round) {
      const auto [itemMask, containerMask, dx, dy] = RandomContact(random, {140, 30});

      const bool expected = ContactByRasterOperations(dx, dy, itemMask.Image(), containerMask.Image(), plainWork);
      const int left = random.Number(-300, 300);
      const int top = random.Number(-300, 300);
      ASSERT_EQ(HitsContainer(ToInteger(left + dx), ToInteger(top + dy), ToInteger(left), ToInteger(top), itemMask,
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

TEST(Placement, NeedsTheCenterStrictlyInsideTheTarget) {
  const PictureBox target = AutoSurface(Bitmap({40, 30}), Frame::Flat);  // at 100, 100
  const struct {
    Size item;
    Integer left, top;
    bool over;
  } cases[] = {{{14, 12}, 93, 110, false},  {{14, 12}, 94, 110, true},  {{14, 12}, 133, 110, false},
               {{14, 12}, 132, 110, true},  {{14, 12}, 110, 94, false}, {{14, 12}, 110, 95, true},
               {{14, 12}, 110, 124, false}, {{14, 12}, 110, 123, true}, {{15, 13}, 93, 94, true}};
  for (const auto& c : cases)
    EXPECT_EQ(OverTarget(c.left, c.top, 100, 100, AutoSurface(Bitmap(c.item)), target), c.over)
        << c.left << ", " << c.top;
}

}  // namespace
}  // namespace sorvex
