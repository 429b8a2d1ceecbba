// SPDX-License-Identifier: MIT
// What a frame does, in which order, with which item and which container.
#include "game/render_loop.h"

#include <gtest/gtest.h>

#include "game/mask.h"
#include "game/return_item.h"
#include "support/story.h"

namespace sorvex {
namespace {

using Names = std::vector<std::string>;

TEST(Elapsed, RoundsHundredthsHalfUp) {
  const struct {
    Long start, now;
    double seconds;
  } cases[] = {{0, 4, 0},      {0, 5, .01},         {0, 1005, 1.01},   {0, 1004, 1},
               {0, 12000, 12}, {100, 12445, 12.35}, {-2000, 13, 2.01}, {0, 2147483647, 2147483.65}};
  for (const auto& c : cases) EXPECT_EQ(ElapsedSeconds(c.start, c.now), c.seconds) << c.start << " to " << c.now;
  EXPECT_THROW(ElapsedSeconds(-2147483647, 2147483647), RuntimeError);
}

TEST(Elapsed, IsWaitedForOnlyWhileItIsShownAndRightAtOnce) {
  Story story({CupTheme(1)});
  const Label& time = story.form.lblTime;
  story.Start().Then([&] { EXPECT_EQ(story.desktop.Patience, 0) << "the frame before changed"; });
  story.Frames(3).Then([&] { EXPECT_EQ(story.desktop.Patience, Desktop::kUntilAnEvent); });
  story.Wait(1234).Then([&] {
    story.form.Image1.Click();
    EXPECT_TRUE(time.Visible);
    EXPECT_EQ(time.Caption, "1.23");
  });
  story.Frames(1).Then([&] { EXPECT_EQ(story.desktop.Patience, 1) << "1.24 seconds begin at 1235 ms"; });
  story.Then(story.form.Image1.Click).Frames(1).Run();
  EXPECT_EQ(story.desktop.Patience, Desktop::kUntilAnEvent);
}

TEST(AFrame, TestsContactBeforePlacementAndSoundsAfterTheSlide) {
  TestTheme theme = CupTheme(2);
  theme.targetX = 40;  // the target lies across the cup's right wall
  theme.targetY = 20;
  Story story({theme});
  int frames = 0;
  story.Start().Move(30, 30).Grab(32, 70).Move(57, 40).Then([&] {
    EXPECT_EQ(story.state.ItemX(0), 25);
    EXPECT_FALSE(story.form.MouseHeld || story.form.Dragging);
    frames = story.desktop.FramesShown;
  });
  story.Release();
  EXPECT_EQ(story.Run(), Story::End::ScriptEnded);
  EXPECT_TRUE(story.state.ItemInPlay(0)) << "back at rest when the placement is tested";
  EXPECT_EQ(story.Sounds(), (Names{"Pickup", "HitTube"})) << "once, and the release lets nothing go";
  EXPECT_EQ(story.desktop.Waves[1].afterFrames, frames);
}

TEST(AFrame, TestsTheItemsOwnContainerAndDrawsAndTakesOutTheCurrentOne) {
  TestTheme theme = CupTheme(3);
  theme.items[0].contSize.width = 26;
  Story story({theme});
  // Item 1 is picked up while container 0 is current: it touches its own container only.
  story.Start().Move(30, 30).Grab(92, 70).Move(94, 5).Move(22, 30).Then([&] {
    EXPECT_EQ(story.state.CurItem, 1);
    EXPECT_EQ(story.state.CurCont, 0);
    EXPECT_EQ(story.state.ItemX(1), 15) << "over container 0's wall without a contact";
    EXPECT_EQ(story.Field(), story.Painted({{0, 25, 63}, {1, 15, 23}, {2, 145, 63}}, Placed{0, 20, 20}));
  });
  story.Move(117, 40).Then([&] { EXPECT_EQ(story.state.ItemX(1), 85) << "sent back by its own container's wall"; });
  story.Wait(500).Grab(92, 70).Move(270, 195).Frames(1).Then([&] {
    EXPECT_FALSE(story.state.ItemInPlay(1));
    EXPECT_TRUE(story.state.ContInPlay(1));
    EXPECT_FALSE(story.state.ContInPlay(0));
  });
  EXPECT_EQ(story.Run(), Story::End::ScriptEnded);
}

TEST(AFrame, MeasuresPicturesAndMasksEachForItsOwnUse) {
  Story story({CupTheme(2)});
  story.Start().Move(30, 30).Then([&] {
    // As in a theme whose masks are larger than their pictures (14 x 12 and 40 x 30).
    story.form.PicMask(0).SetPicture(MakeMask(Bitmap({34, 32}, kWhite)));
    story.form.PicPlainMask(0).SetPicture(MakeMask(Bitmap({60, 50}, kWhite)));
    story.form.PicContMask(0).SetPicture(MakeMask(Bitmap({90, 90}, kWhite)));
  });
  story.Press(45, 70).Then([&] { EXPECT_TRUE(story.Sounds().empty()) << "a press goes by the item's picture"; });
  story.Release().Then([&] {
    ReturnItem(story.program.game);
    EXPECT_EQ(story.state.ItemY(0), 63) << "so does the rest place, and by the container's picture";
    story.state.ItemX(0) = 300 - 17;  // the larger mask's centre on x = 300, inside 250 to 310
    story.state.ItemY(0) = 220 - 16;
  });
  story.Then([&] { EXPECT_FALSE(story.state.ItemInPlay(0)) << "placement goes by the masks"; });
  EXPECT_EQ(story.Run(), Story::End::ScriptEnded);
}

TEST(AFrame, TestsAnItemPutInOnAndOn) {
  Story story({CupTheme(2)});
  story.Start().PutIn(0);
  // Pressed on nothing: the current item is still the one on the target.
  story.Press(300, 10).Then([&] { EXPECT_FALSE(story.form.MouseHeld); }).Release();
  story.Wait(500).Then([&] {
    EXPECT_FALSE(story.form.tmrChangePicBack.Enabled);
    story.state.ItemX(0) = 18;
    story.state.ItemY(0) = 30;
  });
  story.Frames(2);
  EXPECT_EQ(story.Run(), Story::End::ScriptEnded);
  EXPECT_EQ(story.state.ItemX(0), 18) << "its contacts move nothing";
  EXPECT_TRUE(IsLockedOut(story.form) && story.form.tmrChangePicBack.Enabled) << "but lock movement out";
  EXPECT_EQ(story.Sounds(), (Names{"Pickup", "PutInCont", "HitTube", "HitTube", "HitTube"})) << "and sound every frame";
}

TEST(AFrame, WithALargerItemTestsAtTheSizeBeforeFirst) {
  TestTheme theme = CupTheme(2);
  theme.items[1].size = {30, 30};
  theme.items[1].y = 20 + 60 - 30;  // its lower edge lies in the cup's floor, more than 12 rows down
  Story story({theme});
  story.Start().Move(90, 30).Then([&] { EXPECT_TRUE(story.Sounds().empty()); });
  story.Then([&] { EXPECT_EQ(story.Sounds(), Names{"HitTube"}); });
  EXPECT_EQ(story.Run(), Story::End::ScriptEnded);
}

}  // namespace
}  // namespace sorvex
