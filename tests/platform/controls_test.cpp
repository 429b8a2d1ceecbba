// SPDX-License-Identifier: MIT
// What setting a surface's size or picture does.
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

}  // namespace
}  // namespace sorvex
