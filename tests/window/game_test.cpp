// SPDX-License-Identifier: MIT
// Games played with a real pointer in a real window.
#include <gtest/gtest.h>

#include <sstream>

#include "window/sitting.h"

namespace sorvex {
namespace {

using namespace std::chrono_literals;

// The smallest rectangle around everything in `part` of the window that is not its background.
Rectangle InkIn(const Sitting& sitting, const Rectangle& part) {
  const Bitmap seen = sitting.Look(part);
  Rectangle ink{part.right, part.bottom, part.left, part.top};
  for (int y = 0; y < seen.Height(); ++y) {
    for (int x = 0; x < seen.Width(); ++x) {
      if (seen.At(x, y) == kWindowGray) continue;
      ink = {std::min(ink.left, part.left + x), std::min(ink.top, part.top + y), std::max(ink.right, part.left + x + 1),
             std::max(ink.bottom, part.top + y + 1)};
    }
  }
  return ink;
}

// Below the mark of the focus around the field.
bool TimeShows(const Sitting& sitting) { return !InkIn(sitting, {0, 252, 49, 294}).Empty(); }

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

testing::AssertionResult IsAt(const Rectangle& seen, const Rectangle& designed) {
  if (seen == designed) return testing::AssertionSuccess();
  return testing::AssertionFailure() << seen.left << ", " << seen.top << " to " << seen.right << ", " << seen.bottom;
}

struct LaidOut {
  const char* what;
  Rectangle around;
  Rectangle designed;
  bool filled;
};

void ExpectLayout(Sitting& sitting, Size client, const std::vector<LaidOut>& parts) {
  sitting.Open();
  const Rectangle seen = sitting.player->ClientArea(sitting.window);
  EXPECT_EQ(seen.Width(), client.width);
  EXPECT_EQ(seen.Height(), client.height);
  ASSERT_TRUE(WaitUntil([&] { return sitting.Look({8, 8, 9, 9}).At(0, 0) == 0xFF808080; })) << "a sunken frame";
  for (const LaidOut& part : parts) {
    const Rectangle ink = InkIn(sitting, part.around);
    EXPECT_TRUE(IsAt(part.filled ? ink : Intersection(ink, part.designed), part.filled ? part.designed : ink))
        << part.what;
    EXPECT_GT(ink.Width(), part.designed.Width() / 2) << part.what << " is stretched to its place";
  }
}

TEST(WindowLayout, StandsAsDesigned) {
  Sitting sitting;
  ExpectLayout(sitting, {335, 294},
               {{"the play field", {0, 0, 335, 250}, {8, 8, 328, 248}, true},
                {"Start", {0, 250, 157, 294}, {49, 255, 154, 288}, true},
                {"the about image", {155, 250, 197, 294}, {159, 255, 192, 288}, false},
                {"HighScores", {195, 250, 304, 294}, {198, 255, 303, 288}, true},
                {"the folder", {304, 250, 335, 294}, {304, 264, 328, 288}, false}});
}

// 12 twips a pixel: 615 twips from the field to Start are 51.25 pixels, the margins 29.17 and 18.75.
TEST(WineLayout, StandsAsDesignedAt120DotsAnInch) {
  Sitting sitting;
  sitting.AddToRegistry("[Control Panel\\\\Desktop]\n\"LogPixels\"=dword:00000078\n");
  ExpectLayout(sitting, {341, 298},
               {{"the play field", {0, 0, 341, 250}, {8, 8, 328, 248}, true},
                {"Start", {0, 250, 167, 298}, {59, 255, 164, 288}, true},
                {"the about image", {165, 250, 208, 298}, {169, 255, 202, 288}, false},
                {"HighScores", {208, 250, 316, 298}, {211, 255, 316, 288}, true},
                {"the folder", {317, 250, 341, 298}, {317, 264, 341, 288}, false}});
}

// 7.5 twips a pixel: the row reaches beyond the 359 pixels that follow from the form's width.
TEST(WineLayout, CutsNoButtonOffAt192DotsAnInch) {
  Sitting sitting;
  sitting.AddToRegistry("[Control Panel\\\\Desktop]\n\"LogPixels\"=dword:000000C0\n");
  ExpectLayout(sitting, {377, 309},
               {{"Start", {0, 250, 198, 309}, {90, 255, 195, 288}, true},
                {"HighScores", {245, 250, 353, 309}, {247, 255, 352, 288}, true},
                {"the folder", {353, 250, 377, 309}, {353, 264, 377, 288}, false}});
}

TEST(WindowGame, IsPlayedFromStartToTheStoredName) {
  Sitting sitting;
  sitting.Open();
  const auto began = std::chrono::steady_clock::now();
  const Placed rest0 = sitting.Rest(0), rest1 = sitting.Rest(1), rest2 = sitting.Rest(2);
  sitting.StartGame();
  sitting.Hover(90, 30);
  sitting.AwaitField("while hovering", {rest0, rest1, rest2}, sitting.Cup(1));
  sitting.Grab(95, 70);
  sitting.Hover(97, 5);
  sitting.AwaitField("with the item partly above it", {rest0, {1, 87, -2}, rest2}, sitting.Cup(1));
  sitting.Hover(180, 120);
  sitting.AwaitField("with the item in the open", {rest0, {1, 170, 113}, rest2}, sitting.Cup(1));
  sitting.Hover(400, 300);
  sitting.AwaitField("with the pointer outside the window", {rest0, rest2}, sitting.Cup(1));
  sitting.Hover(270, 195);
  sitting.AwaitField("once the item is put in", {rest0, rest2}, std::nullopt);
  sitting.player->Release();

  EXPECT_FALSE(TimeShows(sitting));
  for (const bool shown : {true, false}) {
    sitting.Click(10, 270);
    EXPECT_TRUE(WaitUntil([&] { return TimeShows(sitting) == shown; })) << "the place below the field shows the time";
  }
  sitting.Click(10, 270, 2);
  sitting.AwaitHover("with the first cup hovered", {rest0, rest2}, 0);
  sitting.AwaitHover("with the last cup hovered", {rest0, rest2}, 2);
  EXPECT_TRUE(WaitUntil([&] { return !TimeShows(sitting); })) << "two quick clicks leave the time as it was";

  sitting.PutIn(0);
  sitting.AwaitField("with two items put in", {rest2}, std::nullopt);
  sitting.PutIn(2);
  sitting.Await("Sorvex");
  EXPECT_FALSE(sitting.PanelShows());
  sitting.Answer("Sorvex");
  sitting.Await("You got a highscore");
  sitting.player->Type("Ann B 2nd");
  sitting.Answer("You got a highscore");
  sitting.AwaitPanel(true);
  EXPECT_TRUE(WaitUntil([&] {
    const Rectangle ink = InkIn(sitting, {0, 0, 335, 294});  // the mark of the focus around the field too
    const Rectangle panel{8, 8, 329, 293};
    return Intersection(ink, panel) == panel && ink.bottom == panel.bottom;
  })) << "the panel covers field and buttons";

  const std::vector<std::string> lines = Lines(ReadWholeFile(sitting.ThemeFile("HighScores.ini")));
  const std::vector<std::string> before = Lines(sitting.theme.highScores);
  ASSERT_EQ(lines.size(), 30U);
  EXPECT_EQ(lines[0], "\"Ann B 2nd\"\r");
  EXPECT_EQ(std::vector(lines.begin() + 3, lines.end()), std::vector(before.begin(), before.end() - 3));
  const double seconds = std::stod(lines[2].substr(1));
  EXPECT_GT(seconds, 0);
  EXPECT_LT(seconds, std::chrono::duration<double>(std::chrono::steady_clock::now() - began).count());
}

TEST(WindowGame, AnEarlyReleaseSendsTheItemBackAndLocksMovementOut) {
  Sitting sitting;
  sitting.Open();
  const std::vector<Placed> atRest{sitting.Rest(0), sitting.Rest(1), sitting.Rest(2)};
  sitting.StartGame();
  sitting.Grab(35, 70);
  sitting.Hover(60, 150);
  sitting.AwaitField("while dragging", {{0, 50, 143}, atRest[1], atRest[2]}, sitting.Cup(0));
  const auto letGo = std::chrono::steady_clock::now();
  sitting.player->Release();
  sitting.AwaitHover("after the lock-out", atRest, 1);
  EXPECT_GE(std::chrono::steady_clock::now() - letGo, 500ms) << "until then movement selects no cup";
}

TEST(WindowGame, ATouchSendsTheItemBackAndEndsTheDrag) {
  Sitting sitting;
  sitting.Open();
  const std::vector<Placed> atRest{sitting.Rest(0), sitting.Rest(1), sitting.Rest(2)};
  sitting.StartGame();
  sitting.Grab(35, 70);
  sitting.Hover(35, 50);
  sitting.AwaitField("while dragging", {{0, 25, 43}, atRest[1], atRest[2]}, sitting.Cup(0));
  const auto touched = std::chrono::steady_clock::now();
  sitting.Hover(55, 50);
  sitting.AwaitField("after a touch", atRest, sitting.Cup(0));
  sitting.AwaitHover("with the button still held", atRest, 1);
  EXPECT_GE(std::chrono::steady_clock::now() - touched, 500ms);
  sitting.player->Release();
  sitting.AwaitHover("after a release that ends nothing", atRest, 2);
}

// The box takes the pointer away; what the release then fails with must not take the box's place.
TEST(WindowGame, TellsTheFirstErrorOfItsLoop) {
  TestTheme theme;
  theme.items = {{.x = 25, .y = 63, .contX = 32766, .contY = 20}};
  Sitting sitting(theme);
  sitting.Open();
  sitting.Click(100, 270);
  sitting.AwaitField("at the start", {{0, 25, 63}}, std::nullopt);
  sitting.Hover(35, 70);
  sitting.player->Press();
  sitting.Hover(35, 71);
  sitting.AwaitField("while dragging", {{0, 25, 64}}, std::nullopt);
  sitting.Hover(5, 71);  // more than an Integer from its container
  sitting.Answer("uhh oh!!");
  sitting.player->Release();
  EXPECT_TRUE(WaitUntil([&] { return sitting.player->Titles() == std::vector<std::string>{"Sorvex - Theme1"}; }, 2s))
      << "one box, not two";
}

// Each of these starts a second game while the first runs.
struct SecondStart {
  const char* name;
  void (*act)(Sitting&);
};

class StartedTwice : public testing::TestWithParam<SecondStart> {};

TEST_P(StartedTwice, OnlyTheLastGameReports) {
  Sitting sitting(CupTheme(2));
  sitting.player->RepeatKeys(60, 10);
  sitting.Open();
  sitting.StartGame();
  sitting.PutIn(0);
  sitting.AwaitField("with an item put in", {sitting.Rest(1)}, std::nullopt);
  GetParam().act(sitting);
  sitting.AwaitHover("in the new game", {sitting.Rest(0), sitting.Rest(1)}, 1);
  sitting.PutIn(0);
  sitting.PutIn(1);
  sitting.Answer("Sorvex");
  sitting.Answer("You got a highscore", "Escape");
  sitting.AwaitPanel(true);
  EXPECT_TRUE(WaitUntil([&] {
    const auto before = sitting.program->ProcessorTime();
    WaitUntil([] { return false; }, 300ms);
    return sitting.program->ProcessorTime() - before < 60ms;
  })) << "no other game goes on";
  EXPECT_EQ(sitting.player->Titles(), std::vector<std::string>{"Sorvex - Theme1"});
  const std::vector<std::string> lines = Lines(ReadWholeFile(sitting.ThemeFile("HighScores.ini")));
  EXPECT_EQ(lines[0], "\"\"\r");
  EXPECT_EQ(lines[3], "\"Nobody\"\r") << "one game, one entry";
}

INSTANTIATE_TEST_SUITE_P(WindowGame, StartedTwice,
                         testing::Values(SecondStart{"byAClick", [](Sitting& sitting) { sitting.Click(100, 270); }},
                                         SecondStart{"byADoubleClick",
                                                     [](Sitting& sitting) { sitting.Click(100, 270, 2); }},
                                         SecondStart{"byAHeldKey",
                                                     [](Sitting& sitting) {
                                                       sitting.player->Key("Alt_L", true);
                                                       sitting.player->Key("s", true);
                                                       WaitUntil([] { return false; }, 1s);
                                                       sitting.player->Key("s", false);
                                                       sitting.player->Key("Alt_L", false);
                                                     }}),
                         [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace sorvex
