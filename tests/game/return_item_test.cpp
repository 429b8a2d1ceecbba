// SPDX-License-Identifier: MIT
// The slide back to the cup's bottom and the lock-out that it begins.
#include "game/return_item.h"

#include <gtest/gtest.h>

#include "support/story.h"

namespace sorvex {
namespace {

using Names = std::vector<std::string>;

TEST(ASlide, MovesTwoPixelsADrawnFrameWithoutTheContainer) {
  Story story({CupTheme(2)});
  story.Start().Move(30, 30).Grab(32, 70).Move(132, 70).Then([&] {
    story.desktop.KeepFrames = true;
    const int before = story.desktop.FramesShown;
    story.pointer.Release(kLeftButton, 0, 132, 70);
    story.desktop.KeepFrames = false;
    EXPECT_EQ(story.desktop.Waves[1].afterFrames, before) << "the sound comes before the slide";
  });
  story.Run();
  ASSERT_EQ(story.desktop.Frames.size(), 48U) << "100 pixels: tested before drawn, within 3 pixels it ends";
  EXPECT_EQ(story.desktop.Frames.front(), story.Painted({{0, 123, 63}, {1, 85, 63}}, std::nullopt));
  EXPECT_EQ(story.desktop.Frames.back(), story.Painted({{0, 29, 63}, {1, 85, 63}}, std::nullopt));
  EXPECT_EQ(story.Sounds(), (Names{"Pickup", "LetGo"}));
  EXPECT_EQ(story.Field(), story.Painted({{0, 25, 63}, {1, 85, 63}}, Placed{0, 20, 20}));
}

TEST(ASlide, EndsAtTheRestPlaceWhereverThatIs) {
  const struct {
    Integer x, y, contX;
    int frames;  // -1: many
  } cases[] = {{25, 63, 20, 0},    {20, 63, 20, 0},    {22, 66, 20, 0},    {19, 63, 20, 1},
               {160, 63, 500, -1}, {160, 9, -200, -1}, {160, 9, 32000, -1}};
  for (const auto& c : cases) {
    Story story;
    story.state.ItemX(0) = c.x;
    story.state.ItemY(0) = c.y;
    story.state.ContX(0) = c.contX;
    ReturnItem(story.program.game);
    EXPECT_EQ(story.state.ItemX(0), c.contX + 5);
    EXPECT_EQ(story.state.ItemY(0), 63);
    EXPECT_TRUE(c.frames < 0 || story.desktop.FramesShown == c.frames) << c.x << ", " << c.y;
  }
}

TEST(ASlide, TakesStepsOfTwoPixelsHalvesToEven) {
  Story story;  // a field of 316 x 236
  const struct {
    Integer x, y, targetX, targetY, newX, newY;
  } cases[] = {{0, 0, 100, 0, 2, 0},        {0, 0, 10, 10, 1, 1},        {0, 0, 2, 0, 2, 0},
               {0, 0, 2, 2, 1, 1},          {7, 7, 7, 7, 7, 7},          {10, 10, 13, 14, 11, 12},
               {10, 10, 7, 6, 9, 8},        {0, 0, 3, 1, 2, 1},          {100, 100, -50, 100, 98, 100},
               {315, 10, 999, 10, 316, 10}, {10, 235, 10, 999, 10, 236}, {400, 300, 500, 100, 399, 298}};
  for (const auto& c : cases) {
    StepTowards(story.program.game, c.x, c.y, c.targetX, c.targetY);
    EXPECT_EQ(story.state.ItemX(0), c.newX) << c.x << ", " << c.y << " to " << c.targetX << ", " << c.targetY;
    EXPECT_EQ(story.state.ItemY(0), c.newY) << c.x << ", " << c.y << " to " << c.targetX << ", " << c.targetY;
  }
}

TEST(TheLockOut, EndsHalfASecondAfterTheLastSlideOrWithALoadedTheme) {
  Story story;
  story.Start().TakeOut().Release().Wait(400).Then([&] { ReturnItem(story.program.game); });
  story.Wait(499).Move(90, 30).Then([&] { EXPECT_EQ(story.state.CurCont, 0); });
  story.Wait(1).Move(90, 30).Then([&] {
    EXPECT_EQ(story.state.CurCont, 1);
    EXPECT_FALSE(story.form.tmrChangePicBack.Enabled) << "one tick a start";
    ReturnItem(story.program.game);
  });
  story.Start().Frames(1).Then([&] {
    EXPECT_FALSE(IsLockedOut(story.form)) << "a loaded theme ends it too";
    EXPECT_TRUE(story.form.tmrChangePicBack.Enabled) << "Start leaves the timer alone";
    EXPECT_EQ(story.form.picBg1.Image(), story.form.picBG2.Image());
  });
  EXPECT_EQ(story.Run(), Story::End::ScriptEnded);
}

}  // namespace
}  // namespace sorvex
