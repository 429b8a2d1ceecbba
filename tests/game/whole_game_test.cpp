// SPDX-License-Identifier: MIT
// Games from Start to their end, however it comes.
#include <gtest/gtest.h>

#include "support/story.h"
#include "themes/load_theme.h"

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
  ASSERT_EQ(story.desktop.Prompts.size(), 1U);
  EXPECT_EQ(story.desktop.Prompts[0].prompt, "What is your name?");
  EXPECT_EQ(story.desktop.Prompts[0].title, "You got a highscore");
  EXPECT_EQ(story.Sounds(), (Names{"Pickup", "PutInCont", "Pickup", "PutInCont", "Pickup", "PutInCont"}));
  EXPECT_TRUE(story.form.picHighScores.Visible);
  EXPECT_TRUE(story.form.StopRendering);
  EXPECT_TRUE(story.state.GameEnded);
  EXPECT_EQ(story.Rows()[0], "Zo\xC3\xAB, |03/14/26|0.18") << "reread from the file: a quote ends a field";
  EXPECT_EQ(story.Rows()[1], "Nobody|00/00/00|100");
  std::string file = "\"Zo\xC3\xAB, \"the\" 2nd\"\r\n\"03/14/26\"\r\n\"0.18\"\r\n";
  for (int row = 1; row < 10; ++row) file += "\"Nobody\"\r\n\"00/00/00\"\r\n\"100\"\r\n";
  EXPECT_EQ(ReadWholeFile(story.ThemeFile("HighScores.ini")), file);
}

TEST(WholeGame, ShowsEveryPixelAsTheRasterOperationsSay) {
  Story story;
  const auto expect = [&](const char* when, std::vector<Placed> items, std::optional<Placed> container) {
    story.Then([=, &story] { EXPECT_EQ(story.Field(), story.Painted(items, container)) << when; });
  };
  const Placed rest0{0, 25, 63}, rest1{1, 85, 63}, rest2{2, 145, 63};
  const Placed cup0{0, 20, 20}, cup1{1, 80, 20};

  story.Start();
  expect("at the start", {rest0, rest1, rest2}, cup0);
  story.Move(90, 30);
  expect("while hovering", {rest0, rest1, rest2}, cup1);
  story.Grab(95, 70).Move(97, 5);
  expect("with the item partly above the field", {rest0, {1, 87, -2}, rest2}, cup1);
  story.Move(400, 300);
  expect("with the item beyond the field", {rest0, {1, 390, 293}, rest2}, cup1);
  story.Move(270, 195);
  story.Frames(1);
  expect("once it is put in", {rest0, rest2}, std::nullopt);
  story.Release();
  story.Move(30, 30).Grab(35, 70).Move(60, 150).Release();
  expect("after it was let go", {rest0, rest2}, cup0);
  EXPECT_EQ(story.Run(), Story::End::ScriptEnded);
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

TEST(WholeGame, ATimeThatBeatsNothingStillShowsThePanelReread) {
  Story story({CupTheme(1)});
  story.Start().Then([&] { WriteFile(story.ThemeFile("HighScores.ini"), HighScoreFile({"1", "2", "3"})); });
  story.Wait(100000).PutIn(0);
  story.Run();
  EXPECT_EQ(story.desktop.Boxes, std::vector<Box>{GameOverAfter("100")});
  EXPECT_TRUE(story.desktop.Prompts.empty());
  EXPECT_TRUE(story.form.picHighScores.Visible);
  EXPECT_EQ(story.Rows()[2], "P2|01/02/03|3");
}

// --- Start at other times ---

TEST(SecondStart, AbandonsTheGameAndOnlyTheLastOneReports) {
  Story story({CupTheme(1)});
  story.Start().TakeOut().Wait(5000);
  story.Start().Frames(1).Then([&] {
    EXPECT_EQ(story.state.ItemX(0), 25) << "a new game begins at the start positions";
    EXPECT_EQ(story.form.lblTime.Caption, "0");
    EXPECT_TRUE(story.form.MouseHeld && story.form.Dragging) << "Start does not let go of the pointer";
  });
  story.Release().Wait(1000).PutIn(0).Frames(2);
  story.Run();
  EXPECT_EQ(story.desktop.Boxes, std::vector<Box>{GameOverAfter("1")});
}

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

TEST(SecondStart, InADoubleClickMakesOneGame) {
  Story story({CupTheme(1)});
  const auto click = [&] { story.form.Command1.Click(); };
  story.Then(click).Then(click).PutIn(0).Frames(3);
  story.Run();
  EXPECT_EQ(story.desktop.Boxes.size(), 1U);
  EXPECT_EQ(story.state.ThemeLoads, 2U) << "the second press came while the theme was loading: it loads nothing again";
}

// --- other ways to end ---

TEST(AThemeChosenInAGame, EndsItWithoutAReport) {
  for (const int items : {0, 1, 5}) {
    SCOPED_TRACE(items);
    Story story({CupTheme(3), CupTheme(items, "Other")});
    story.Start().Move(150, 30).Grab(152, 70).Move(154, 5);  // item 2
    story.Then([&] {
      story.state.ThemeName = "Other";
      LoadTheme(story.program.game, "Other");
    });
    story.Frames(3).Move(30, 30).Release().Run();
    EXPECT_EQ(story.state.StartCommand, modVariables::Start::Idle);
    EXPECT_TRUE(story.desktop.Boxes.empty());
    EXPECT_EQ(story.state.LastItem, items - 1);
    EXPECT_FALSE(story.state.GameEnded);
  }
}

TEST(ClosingTheWindow, EndsTheProgramInEveryStateWithNothingRecorded) {
  const std::pair<const char*, std::function<void(Story&)>> cases[] = {
      {"idle", [](Story&) {}},
      {"in a game", [](Story& story) { story.Start().Frames(2); }},
      {"while the theme loads", [](Story& story) { story.Then([&] { story.form.Command1.Click(); }); }},
      {"right after a slide", [](Story& story) { story.Start().TakeOut().Release(); }},
      {"while the result is shown",
       [](Story& story) {
         story.desktop.WhileBoxOpen = [&](const Box&) { story.form.Unload(); };
         story.Start().PutIn(0);
       }},
      {"while an error is shown",
       [](Story& story) {
         story.desktop.WhileBoxOpen = [&](const Box&) { story.form.Unload(); };
         story.Start().Then([&] { story.form.PicCanvas.MouseDown(kLeftButton, 0, 40000, 0); });
       }},
      {"while the name is asked for",
       [](Story& story) {
         story.desktop.TypeName = [&] { return story.form.Unload(), "late"; };
         story.Start().PutIn(0);
       }},
  };
  for (const auto& [when, play] : cases) {
    SCOPED_TRACE(when);
    Story story({CupTheme(1)});
    play(story);
    story.Then([&] { story.form.Unload(); });
    EXPECT_EQ(story.Run(), Story::End::ProgramEnded);
    EXPECT_TRUE(story.form.StopRendering);
    EXPECT_FALSE(story.form.picHighScores.Visible);
    EXPECT_EQ(ReadWholeFile(story.ThemeFile("HighScores.ini")), HighScoreFile({}));
  }
}

// --- errors ---

TEST(AnErrorInTheLoop, IsShownAndEndsTheGameWithoutAReport) {
  const std::function<void(Story&)> errors[] = {
      [](Story& story) { story.state.ItemX(0) = -30000, story.state.ContX(0) = 30000; },
      [](Story& story) { story.desktop.Now = 2147483647; },
      [](Story& story) { story.form.PicCanvas.MouseDown(kLeftButton, 0, 40000, 0); },
      [](Story& story) {
        story.state.ContX(0) = 32765;  // no Integer holds the rest place
        story.form.Dragging = true;
        story.form.PicCanvas.MouseUp(kLeftButton, 0, 0, 0);
      },
  };
  for (const auto& error : errors) {
    Story story({CupTheme(1)});
    story.desktop.Now = -2000000;
    story.Start().Then([&] { error(story); }).Frames(1);
    story.Run();
    EXPECT_EQ(
        story.desktop.Boxes,
        (std::vector<Box>{{"Error: 6\r\nOverflow\r\nProblem in main rendering loop", "uhh oh!!", BoxIcon::Critical}}))
        << "error " << &error - errors;
    EXPECT_TRUE(story.form.StopRendering);
    EXPECT_FALSE(story.state.GameEnded);
  }
}

TEST(AFailingSave, KeepsTheEntryInTheRowsAndEndsWithAReport) {
  for (const RuntimeError& failure : {PathAccessError(), DiskFull(), PathNotFound()}) {
    Story story({CupTheme(1)});
    story.desktop.WriteFailure = failure;
    story.desktop.TypeName = [] { return "Ann"; };
    story.Start().PutIn(0).Frames(1).Run();
    const std::string error = "Error: " + std::to_string(failure.Number()) + "\r\n" + failure.Description();
    EXPECT_EQ(story.desktop.Boxes,
              (std::vector<Box>{GameOverAfter("0"),
                                {error + "\r\nProblem in main rendering loop", "uhh oh!!", BoxIcon::Critical}}));
    EXPECT_EQ(story.Rows()[0], "Ann|03/14/26|0");
    EXPECT_FALSE(story.form.picHighScores.Visible);
    EXPECT_FALSE(story.state.GameEnded);
    EXPECT_EQ(ReadWholeFile(story.ThemeFile("HighScores.ini")), HighScoreFile({}));
  }
}

}  // namespace
}  // namespace sorvex
