// SPDX-License-Identifier: MIT
// Games from Start to their end, however it comes, their time, and the pointer without a game.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "game/pointer_handlers.h"
#include "support/story.h"

namespace sorvex {
namespace {

using Box = HeadlessDesktop::Box;
using Names = std::vector<std::string>;

Box GameOverAfter(const std::string& seconds) {
  return {"Game Over\r\nYou took: " + seconds + " seconds", "Sorvex", BoxIcon::None};
}

TEST(WholeGame, EndsInTheTableAndTheFile) {
  Story story;
  story.desktop.MillisecondsPerDelivery = 10;
  story.desktop.TypeName = [] { return "Zo\xC3\xAB, \"the\" 2nd"; };
  bool panelWaited = false;
  story.desktop.WhileBoxOpen = [&](const Box&) {
    panelWaited = !story.form.picHighScores.Visible && story.form.lblTime.Caption == "0.18";
  };
  story.Start().PutIn(0).PutIn(1).PutIn(2).Frames(1);
  story.Run();

  EXPECT_EQ(story.desktop.Boxes, std::vector<Box>{GameOverAfter("0.18")});
  EXPECT_TRUE(panelWaited);
  EXPECT_EQ(story.Sounds(), (Names{"Pickup", "PutInCont", "Pickup", "PutInCont", "Pickup", "PutInCont"}));
  EXPECT_TRUE(story.form.picHighScores.Visible);
  EXPECT_TRUE(story.form.StopRendering);
  EXPECT_TRUE(story.state.GameEnded);
  EXPECT_EQ(story.Rows()[0], "Zo\xC3\xAB, |03/14/26|0.18") << "reread from the file: a quote ends a field";
  EXPECT_EQ(story.Rows()[1], "Nobody|00/00/00|100");

  story.Grab(270, 195).Move(200, 100).Release().Run();
  EXPECT_EQ(story.Sounds().back(), "PutInCont") << "after the game the pointer holds nothing";
  EXPECT_EQ(story.desktop.Boxes.size(), 1U);
}

TEST(WholeGame, AThemeWithoutItemsIsOverInItsFirstFrameAlsoAfterAFullOne) {
  Story story({CupTheme(3), CupTheme(0, "Empty")});
  story.state.CurItem = 2;  // whose place a theme without items does not have
  story.state.ThemeName = "Empty";
  story.Start().Frames(1);
  story.Run();
  EXPECT_EQ(story.desktop.Boxes, std::vector<Box>{GameOverAfter("0")});
  EXPECT_EQ(story.desktop.FramesShown, 1);
  EXPECT_EQ(story.Rows()[0], "|03/14/26|0") << "an empty name is a name";
}

// --- Start at other times ---

TEST(SecondStart, NestsNothingHoweverOftenItComes) {
  Story story({CupTheme(1)});
  std::vector<const char*> places;
  for (int i = 0; i < 300; ++i)
    story.Start().Then([&] {
      const char here = 0;
      places.push_back(&here);
    });
  story.Run();
  const auto [lowest, highest] = std::ranges::minmax(places);
  EXPECT_LT(highest - lowest, 4096) << "the stack grows with every Start";
}

TEST(ClosingTheWindow, EndsTheProgramAlsoWhileAThemeLoadsOrTheNameIsAskedFor) {
  for (const bool nameAsked : {false, true}) {
    Story story({CupTheme(1)});
    story.desktop.TypeName = [&] { return story.form.Unload(), "late"; };
    if (nameAsked)
      story.Start().PutIn(0);
    else
      story.Then([&] { story.form.Command1.Click(); }).Then([&] { story.form.Unload(); });
    EXPECT_EQ(story.Run(), Story::End::ProgramEnded);
    EXPECT_TRUE(story.form.StopRendering);
    EXPECT_EQ(ReadWholeFile(story.ThemeFile("HighScores.ini")), HighScoreFile({}));
  }
}

// --- errors ---

TEST(AnErrorInTheLoop, IsShownAndEndsTheGameWithoutAReport) {
  const std::string overflow = "6\r\nOverflow";
  const std::pair<std::function<void(Story&)>, std::string> errors[] = {
      {[](Story& story) { story.state.ItemX(0) = -30000, story.state.ContX(0) = 30000; }, overflow},
      {[](Story& story) { story.desktop.Now = 2147483647; }, overflow},
      {[](Story& story) { story.form.PicCanvas.MouseDown(kLeftButton, 0, 40000, 0); }, overflow},
      {[](Story&) { throw std::bad_alloc(); }, "7\r\nOut of memory"},
  };
  for (const auto& [error, words] : errors) {
    Story story({CupTheme(1)});
    story.desktop.Now = -2000000;
    story.Start().Then([&story, &error = error] { error(story); }).Frames(1);
    story.Run();
    EXPECT_EQ(
        story.desktop.Boxes,
        (std::vector<Box>{{"Error: " + words + "\r\nProblem in main rendering loop", "uhh oh!!", BoxIcon::Critical}}));
    EXPECT_TRUE(story.form.StopRendering);
    EXPECT_FALSE(story.state.GameEnded);
  }
}

TEST(AFailingSave, KeepsTheEntryInTheRowsAndEndsWithAReport) {
  Story story({CupTheme(1)});
  story.desktop.WriteFailure = DiskFull();
  story.desktop.TypeName = [] { return "Ann"; };
  story.Start().PutIn(0).Frames(1).Run();
  EXPECT_EQ(
      story.desktop.Boxes,
      (std::vector<Box>{GameOverAfter("0"),
                        {"Error: 61\r\nDisk full\r\nProblem in main rendering loop", "uhh oh!!", BoxIcon::Critical}}));
  EXPECT_EQ(story.Rows()[0], "Ann|03/14/26|0");
  EXPECT_FALSE(story.form.picHighScores.Visible || story.state.GameEnded);
}

// --- the time of a game ---

TEST(Elapsed, IsWaitedForOnlyWhileItIsShownAndRightAtOnce) {
  Story story({CupTheme(1)});
  story.Start().Then([&] { EXPECT_EQ(story.desktop.Patience, 0) << "the frame before changed"; });
  story.Frames(3).Then([&] { EXPECT_EQ(story.desktop.Patience, Desktop::kUntilAnEvent); });
  story.Wait(1234).Then([&] {
    story.form.Image1.Click();
    EXPECT_EQ(story.form.lblTime.Caption, "1.23");
  });
  story.Frames(1).Then([&] { EXPECT_EQ(story.desktop.Patience, 1) << "1.24 seconds begin at 1235 ms"; });
  story.Then(story.form.Image1.Click).Frames(1).Run();
  EXPECT_EQ(story.desktop.Patience, Desktop::kUntilAnEvent);
}

// The count is read as signed: half way the difference leaves its range, where it begins again at zero nothing is odd.
TEST(ATickCount, EndsAGameWithABoxAtHalfItsRangeAndNoneAtItsEndNorTheNextGame) {
  for (const Long last : {std::numeric_limits<Long>::max(), Long{-1}}) {
    Story story({CupTheme(1)});
    const auto pass = [&] { story.desktop.Now = static_cast<Long>(static_cast<std::uint32_t>(last) + 501); };
    story.desktop.Now = last - 499;
    story.Start().Then(pass);
    std::vector<Box> boxes;
    if (last > 0) {
      boxes.push_back({"Error: 6\r\nOverflow\r\nProblem in main rendering loop", "uhh oh!!", BoxIcon::Critical});
      story.Start().Wait(1000);
    }
    boxes.push_back(GameOverAfter("1"));
    story.PutIn(0).Frames(1).Run();
    EXPECT_EQ(story.desktop.Boxes, boxes);
    EXPECT_EQ(story.desktop.Prompts.size(), 1U);
  }
}

// --- the pointer where the model of the rules does not go ---

TEST(ThePointer, MeetsAnErrorInTheMaskTestWithABoxAndDragsNothing) {
  Story story;
  story.state.ItemX(0) = -30000;
  story.form.MouseHeld = true;
  PicCanvas_MouseMove(story.program.game, 5000, 10);
  EXPECT_EQ(
      story.desktop.Boxes,
      (std::vector<Box>{{"Err: 6\r\nOverflow\r\nError from CheckForDrag function", "Sorvex", BoxIcon::Exclamation}}));
  EXPECT_FALSE(story.form.Dragging);
}

TEST(WithoutAGame, ThePointerDoesNothingOnTheFieldButLetGo) {
  Story story({CupTheme(2)});
  const auto drag = [&] { story.Move(30, 30).Grab(32, 70).Move(33, 60); };
  const Bitmap welcome = story.Field();
  drag();
  story.Release().Then([&] { EXPECT_EQ(story.Field(), welcome); });
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
