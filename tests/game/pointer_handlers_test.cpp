// SPDX-License-Identifier: MIT
// Hover, press, drag and release on the play field.
#include "game/pointer_handlers.h"

#include <gtest/gtest.h>

#include "game/return_item.h"
#include "support/random_surfaces.h"
#include "support/story.h"

namespace sorvex {
namespace {

using Names = std::vector<std::string>;

// The cups stand at 20, 80, 140; 20 and are 40 x 60; their items rest at 25, 85, 145; 63, are 14 x 12 and transparent
// in their left two columns. The handlers need no game to run, so that each case is one call.
class Pointer : public testing::Test {
 protected:
  void Press(float x, float y) { PicCanvas_MouseDown(game, kLeftButton, x, y); }
  void Move(float x, float y) { PicCanvas_MouseMove(game, x, y); }

  Story story;
  frmMain& form = story.form;
  modVariables& state = story.state;
  Game& game = story.program.game;
};

TEST_F(Pointer, HoveringSelectsStrictlyInsideAContainerInPlay) {
  const struct {
    float x, y;
    int selected;
  } cases[] = {{80, 30, 0}, {80.5F, 30, 1}, {119, 30, 1}, {120, 30, 0}, {90, 20, 0},
               {90, 21, 1}, {90, 79, 1},    {90, 80, 0},  {500, -9, 0}, {141, 79, 2}};
  for (const auto& c : cases) {
    state.CurItem = state.CurCont = 0;
    Move(c.x, c.y);
    EXPECT_EQ(state.CurItem, c.selected) << c.x << ", " << c.y;
    EXPECT_EQ(state.CurCont, c.selected) << c.x << ", " << c.y;
  }
  state.ContInPlay(1) = false;
  Move(90, 30);
  EXPECT_EQ(state.CurCont, 2) << "a container out of play is not selected";
  state.ContX(2) = state.ContX(0);
  Move(30, 30);
  EXPECT_EQ(state.CurCont, 0) << "of two that overlap the lower number is selected";
}

TEST_F(Pointer, APressPicksUpTheLowestItemStrictlyInsideItsRectangle) {
  const struct {
    float x, y;
    bool hits;
  } cases[] = {{85, 70, false}, {85.5F, 70, true}, {98, 70, true}, {99, 70, false},
               {90, 63, false}, {90, 64, true},    {90, 74, true}, {90, 75, false}};
  for (const auto& c : cases) {
    state.CurItem = 0;
    story.desktop.Waves.clear();
    Press(c.x, c.y);
    EXPECT_EQ(state.CurItem, c.hits ? 1 : 0) << c.x << ", " << c.y;
    EXPECT_EQ(story.desktop.Waves.size(), c.hits ? 1U : 0U) << c.x << ", " << c.y;
  }
  state.ItemX(2) = state.ItemX(1);
  state.ItemInPlay(1) = false;
  Press(90, 70);
  EXPECT_EQ(state.CurItem, 1) << "also one that is put in, and although 2 is drawn over it";
  EXPECT_EQ(state.CurCont, 0) << "a press selects no container";
}

TEST_F(Pointer, EveryPressTakesTheGrabOffsetsRoundedHalfToEven) {
  Press(90.5F, 71.5F);
  EXPECT_EQ(form.GrabX, 6);  // 5.5
  EXPECT_EQ(form.GrabY, 8);  // 8.5
  Press(300, 200);           // on nothing: measured from the current item, which follows once it is reached
  Move(150, 30);
  EXPECT_EQ(state.CurCont, 0) << "hovering selects nothing while the button is held";
  EXPECT_FALSE(form.Dragging);
  Move(92, 70);
  EXPECT_TRUE(form.Dragging);
  EXPECT_EQ(state.ItemX(1), 92 - (300 - 85));
  EXPECT_EQ(state.ItemY(1), 70 - (200 - 63));
}

TEST_F(Pointer, AnItemFollowsOnceTheHeldPointerIsOnAnOpaquePixel) {
  Press(86, 70);
  Move(86, 70);
  EXPECT_FALSE(form.Dragging) << "transparent there";
  EXPECT_EQ(story.Sounds(), Names{"Pickup"});
  Move(87, 70);
  EXPECT_EQ(state.ItemX(1), 86);
  Move(-50, 400.5F);
  EXPECT_EQ(state.ItemX(1), -51);
  EXPECT_EQ(state.ItemY(1), 394) << "393.5 rounds to even";
}

TEST_F(Pointer, OnlyTheLeftButtonPicksUpAndAnyLetsGo) {
  for (const Integer button : {kRightButton, kMiddleButton, kLeftButton}) {
    PicCanvas_MouseDown(game, button, 90, 70);
    EXPECT_EQ(form.MouseHeld, button == kLeftButton);
  }
  Move(90, 70);
  Move(90, 40);
  form.PicCanvas.MouseUp(kRightButton, 0, 90, 40);
  EXPECT_FALSE(form.Dragging);
  EXPECT_EQ(story.Sounds(), (Names{"Pickup", "LetGo"}));
  EXPECT_EQ(state.ItemY(1), 63);
}

TEST_F(Pointer, MovementIsIgnoredInTheLockOutPressesAndReleasesAreNot) {
  ReturnItem(game);
  Move(90, 30);
  EXPECT_EQ(state.CurCont, 0);
  Press(90, 70);
  Move(90, 60);
  EXPECT_EQ(state.CurItem, 1);
  EXPECT_FALSE(form.Dragging);
  PicCanvas_MouseUp(game);
  EXPECT_FALSE(form.MouseHeld);
}

TEST_F(Pointer, OnlyPureBlackOfTheMaskIsOpaque) {
  Bitmap pixels({5, 1}, kWhite);
  const Pixel colors[] = {kBlack, 0xFF010000, 0xFF000001, 0xFF808080, kWhite};
  std::ranges::copy(colors, pixels.Row(0));
  const PictureBox mask = AutoSurface(pixels);
  for (Integer y = 6; y <= 8; ++y)
    for (Integer x = 99; x < 106; ++x)
      EXPECT_EQ(CheckForDrag(game, x, y, 100, 7, mask), x == 100 && y == 7) << x << ", " << y;
}

TEST_F(Pointer, AnErrorInTheMaskTestIsShownAndCountsAsNo) {
  state.ItemX(0) = -30000;
  form.MouseHeld = true;
  Move(5000, 10);
  EXPECT_EQ(story.desktop.Boxes,
            (std::vector<HeadlessDesktop::Box>{
                {"Err: 6\r\nOverflow\r\nError from CheckForDrag function", "Sorvex", BoxIcon::Exclamation}}));
  EXPECT_FALSE(form.Dragging);
}

TEST(WithoutAGame, ThePointerDoesNothingOnTheFieldButLetGo) {
  Story story({CupTheme(2), CupTheme(1, "Other")});
  const auto drag = [&] { story.Move(30, 30).Grab(32, 70).Move(33, 60); };
  const Bitmap welcome = story.Field();
  drag();
  story.Release();
  EXPECT_EQ(story.Run(), Story::End::ScriptEnded);
  EXPECT_TRUE(story.Sounds().empty());
  EXPECT_EQ(story.Field(), welcome);
  EXPECT_EQ(story.state.ItemY(0), 63);

  // The game ends while an item is held.
  story.Start();
  drag();
  story.Then([&] { story.form.StopRendering = true; }).Release().Then([&] {
    EXPECT_FALSE(story.form.MouseHeld || story.form.Dragging);
    EXPECT_EQ(story.state.ItemY(0), 63);
  });
  drag();
  EXPECT_EQ(story.Run(), Story::End::ScriptEnded);
  EXPECT_EQ(story.Sounds(), (Names{"Pickup", "LetGo"}));
}

TEST(WithoutAGame, HandlersRunBeforeAnyThemeAndWithoutItems) {
  for (const std::vector<TestTheme>& themes : {std::vector<TestTheme>{CupTheme(0)}, {}}) {
    Story story(themes);
    Game& game = story.program.game;
    PicCanvas_MouseDown(game, kLeftButton, 30, 30);
    PicCanvas_MouseMove(game, 31, 30);
    PicCanvas_MouseUp(game);
    PicCanvas_MouseMove(game, 30, 30);
    EXPECT_TRUE(story.Sounds().empty());
    EXPECT_EQ(story.state.CurItem, 0);
    story.form.tmrChangePicBack.Tick();
    story.form.Image1.Click();
    story.form.picHighScores.Paint();
  }
}

}  // namespace
}  // namespace sorvex
