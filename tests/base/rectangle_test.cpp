// SPDX-License-Identifier: MIT
// The rectangle's edges: left and top belong to it, right and bottom do not.
#include "base/rectangle.h"

#include <gtest/gtest.h>

namespace sorvex {
namespace {

constexpr Rectangle kTwoByThree = Rectangle::At(10, 20, {2, 3});
static_assert(kTwoByThree == Rectangle{10, 20, 12, 23});
static_assert(kTwoByThree.Width() == 2 && kTwoByThree.Height() == 3);
static_assert(kTwoByThree.Moved(-10, 5) == Rectangle::At(0, 25, {2, 3}));

TEST(RectangleRules, RightAndBottomAreOutside) {
  EXPECT_TRUE(kTwoByThree.Contains(10, 20));
  EXPECT_TRUE(kTwoByThree.Contains(11, 22));
  EXPECT_FALSE(kTwoByThree.Contains(12, 22));
  EXPECT_FALSE(kTwoByThree.Contains(11, 23));
  EXPECT_FALSE(kTwoByThree.Contains(9, 20));
}

TEST(RectangleRules, NeighboursShareNothing) {
  EXPECT_TRUE(Intersection(kTwoByThree, kTwoByThree.Moved(2, 0)).Empty());
  EXPECT_TRUE(Intersection(kTwoByThree, kTwoByThree.Moved(0, -3)).Empty());
  EXPECT_TRUE(Intersection(kTwoByThree, kTwoByThree.Moved(50, 50)).Empty());
  EXPECT_EQ(Intersection(kTwoByThree, kTwoByThree.Moved(1, 2)), (Rectangle{11, 22, 12, 23}));
}

}  // namespace
}  // namespace sorvex
