// SPDX-License-Identifier: MIT
// What setting a property does: sizes, frames, persistent images, control arrays.
#include "platform/controls.h"

#include <gtest/gtest.h>

#include "support/random_surfaces.h"

namespace sorvex {
namespace {

TEST(Surface, OfAFixedSizeCutsItsPictureAndShowsBackgroundBesideIt) {
  PictureBox surface = FixedSurface(Bitmap({5, 5}));
  surface.Background = 0xFF0000FF;
  surface.SetPicture(MakePicture(Bitmap({3, 9}, kWhite)));
  EXPECT_EQ(surface.Image().At(2, 4), kWhite);
  EXPECT_EQ(surface.Image().At(3, 0), 0xFF0000FF);
  surface.Resize(10, 6);
  EXPECT_EQ(surface.Image().Extent(), (Size{6, 2}));
  EXPECT_EQ(surface.Image().At(2, 1), kWhite) << "resizing keeps the image";
  EXPECT_EQ(surface.Image().At(5, 0), 0xFF0000FF);
  surface.Resize(3, 3);
  EXPECT_EQ(surface.Image().Extent(), (Size{0, 0}));
}

TEST(Surface, DrawingNeverReachesTheSharedPicture) {
  PictureBox surface = AutoSurface(Bitmap({4, 4}, kWhite));
  const Picture shared = surface.PictureObject();
  surface.Drawing().Row(0)[0] = kBlack;
  EXPECT_EQ(shared->Pixels().At(0, 0), kWhite);
  EXPECT_EQ(surface.Image().At(0, 0), kBlack);
  surface.SetPicture(shared);
  EXPECT_EQ(surface.Image().At(0, 0), kWhite);
}

}  // namespace
}  // namespace sorvex
