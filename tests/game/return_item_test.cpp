// SPDX-License-Identifier: MIT
// The slide back to the cup's bottom and the lock-out that it begins.
#include "game/return_item.h"

#include <gtest/gtest.h>

#include "support/field_painter.h"
#include "support/story.h"

namespace sorvex {
namespace {

using Names = std::vector<std::string>;

TEST(Slide, TwoPixelsADrawnFrameWithoutTheContainer) {
  const TestTheme theme = CupTheme(2);
  Story story({theme});
  const FieldPainter painter(story.ThemeFile("bg.bmp").parent_path(), theme.targetX, theme.targetY);
  int before = 0;
  story.Start().Hover(30, 30).Grab(32, 70).Drag(132, 70).Then([&] {
    story.desktop.KeepFrames = true;
    before = story.desktop.FramesShown;
    story.pointer.Release(kLeftButton, 0, 132, 70);
    story.desktop.KeepFrames = false;
  });
  story.Run();

  ASSERT_EQ(story.desktop.Frames.size(), 48U) << "100 pixels: tested before drawn, within 3 pixels it ends";
  EXPECT_EQ(story.desktop.Frames.front(), painter.Paint({{0, 123, 63}, {1, 85, 63}}, std::nullopt));
  EXPECT_EQ(story.desktop.Frames.back(), painter.Paint({{0, 29, 63}, {1, 85, 63}}, std::nullopt));
  EXPECT_EQ(story.state.ItemX(0), 25);
  EXPECT_EQ(story.state.ItemY(0), 63);
  EXPECT_EQ(story.Sounds(), (Names{"Pickup", "LetGo"}));
  EXPECT_EQ(story.desktop.Waves[1].afterFrames, before) << "the sound comes before the slide";
  EXPECT_EQ(story.Field(), painter.Paint({{0, 25, 63}, {1, 85, 63}}, Placed{0, 20, 20}));
}

TEST(Slide, NearTheRestPlaceDrawsNothing) {
  Story story;
  for (const Integer away : {Integer{0}, Integer{2}, Integer{3}, Integer{5}, Integer{6}}) {
    story.state.ItemX(0) = static_cast<Integer>(25 - away);
    story.state.ItemY(0) = static_cast<Integer>(63 + (away == 3 ? 3 : 0));
    story.desktop.FramesShown = 0;
    ReturnItem(story.program.game);
    EXPECT_EQ(story.desktop.FramesShown, away > 5 ? 1 : 0) << away;
    EXPECT_EQ(story.state.ItemX(0), 25);
    EXPECT_EQ(story.state.ItemY(0), 63);
  }
}

TEST(Slide, OfAnItemPutInMovesNothingAndStillLocksOut) {
  Story story;
  story.state.ItemInPlay(0) = false;
  story.state.ItemX(0) = 200;
  story.form.tmrChangePicBack.Enabled = false;
  ReturnItem(story.program.game);
  EXPECT_EQ(story.state.ItemX(0), 200);
  EXPECT_EQ(story.desktop.FramesShown, 0);
  EXPECT_TRUE(IsLockedOut(story.form));
  EXPECT_TRUE(story.form.tmrChangePicBack.Enabled);
}

TEST(Slide, ToARestPlaceOutsideTheFieldEndsThere) {
  for (const int x : {-200, 500, 32000}) {
    TestTheme theme = CupTheme(1);
    theme.items[0].contX = x;
    theme.items[0].contY = -300;
    Story story({theme});
    story.state.ItemX(0) = 160;
    story.state.ItemY(0) = 100;
    ReturnItem(story.program.game);
    EXPECT_EQ(story.state.ItemX(0), x + 5);
    EXPECT_EQ(story.state.ItemY(0), -300 + 43);
    EXPECT_LT(story.desktop.FramesShown, 200);
  }
}

TEST(Slide, StepsAreTwoPixelsLongHalvesToEven) {
  Story story;  // a field of 316 x 236
  const struct {
    Integer x, y, targetX, targetY, newX, newY;
  } cases[] = {
      {0, 0, 100, 0, 2, 0},
      {0, 0, 10, 10, 1, 1},
      {0, 0, 2, 0, 2, 0},
      {0, 0, 1, 1, 1, 1},
      {0, 0, 2, 2, 1, 1},
      {7, 7, 7, 7, 7, 7},
      {10, 10, 13, 14, 11, 12},
      {10, 10, 7, 6, 9, 8},
      {0, 0, 3, 1, 2, 1},
      {100, 100, -50, 100, 98, 100},
      {400, 300, 500, 100, 399, 298},
      {315, 10, 999, 10, 316, 10},
      {10, 235, 10, 999, 10, 236},
  };
  for (const auto& c : cases) {
    StepTowards(story.program.game, c.x, c.y, c.targetX, c.targetY);
    EXPECT_EQ(story.state.ItemX(0), c.newX) << c.x << ", " << c.y << " to " << c.targetX << ", " << c.targetY;
    EXPECT_EQ(story.state.ItemY(0), c.newY) << c.x << ", " << c.y << " to " << c.targetX << ", " << c.targetY;
  }
}

// --- the lock-out ---

TEST(LockOut, EndsAtTheFirstDeliveryAfterHalfASecond) {
  Story story;
  story.Start().Hover(30, 30).Grab(32, 70).Drag(40, 5).Release();
  story.Wait(499).Hover(90, 30).Then([&] { EXPECT_EQ(story.state.CurCont, 0); });
  story.Wait(1).Hover(90, 30).Then([&] {
    EXPECT_EQ(story.state.CurCont, 1);
    EXPECT_FALSE(story.form.tmrChangePicBack.Enabled) << "one tick a start";
    EXPECT_EQ(story.form.PicBlank.PictureObject(), story.form.picBg1.PictureObject());
  });
  EXPECT_EQ(story.Run(), Story::End::ScriptEnded);
}

TEST(LockOut, BeginsAnewWithEverySlide) {
  Story story;
  story.Start().Hover(30, 30).Grab(32, 70).Drag(40, 5).Release().Wait(400);
  story.Then([&] { ReturnItem(story.program.game); }).Wait(400).Frames(1).Then([&] {
    EXPECT_TRUE(IsLockedOut(story.form));
  });
  story.Wait(100).Frames(1).Then([&] { EXPECT_FALSE(IsLockedOut(story.form)); });
  EXPECT_EQ(story.Run(), Story::End::ScriptEnded);
}

TEST(LockOut, EndsWithALoadedThemeAndStartLeavesTheTimerAlone) {
  Story story;
  story.Start().Hover(30, 30).Grab(32, 70).Drag(40, 5).Release().Wait(100);
  story.Start().Frames(1).Then([&] {
    EXPECT_FALSE(IsLockedOut(story.form)) << "the new theme's normal background is in force";
    EXPECT_TRUE(story.form.tmrChangePicBack.Enabled) << "the tick is still to come";
  });
  story.Then([&] { ReturnItem(story.program.game); }).Wait(499).Frames(1).Then([&] {
    EXPECT_TRUE(IsLockedOut(story.form));
  });
  EXPECT_EQ(story.Run(), Story::End::ScriptEnded);
}

TEST(LockOut, TheTwoBackgroundsAreTwoObjects) {
  const Story story;
  EXPECT_NE(story.form.picBg1.PictureObject(), story.form.picBG2.PictureObject());
  EXPECT_EQ(story.form.picBg1.Image(), story.form.picBG2.Image());
}

}  // namespace
}  // namespace sorvex
