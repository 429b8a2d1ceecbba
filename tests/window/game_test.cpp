// SPDX-License-Identifier: MIT
// Games played with a real pointer in a real window.
#include <gtest/gtest.h>

#include "support/printers.h"
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

struct LaidOut {
  const char* what;
  Rectangle around;
  Rectangle designed;
  bool filled;
};

void ExpectLayout(Sitting& sitting, Size client, const std::vector<LaidOut>& parts) {
  sitting.Open();
  const Rectangle seen = sitting.player->ClientArea(sitting.window);
  EXPECT_EQ((Size{seen.Width(), seen.Height()}), client);
  ASSERT_TRUE(WaitUntil([&] { return sitting.Look({8, 8, 9, 9}).At(0, 0) == 0xFF808080; })) << "a sunken frame";
  for (const auto& [what, around, designed, filled] : parts) {
    const Rectangle ink = InkIn(sitting, around);
    EXPECT_TRUE(ink == (filled ? designed : Intersection(ink, designed)))
        << what << " from " << ink.left << ", " << ink.top << " to " << ink.right << ", " << ink.bottom;
    EXPECT_GT(ink.Width(), designed.Width() / 2) << what << " is stretched to its place";
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
               {{"Start", {0, 250, 167, 298}, {59, 255, 164, 288}, true},
                {"HighScores", {208, 250, 316, 298}, {211, 255, 316, 288}, true},
                {"the folder", {317, 250, 341, 298}, {317, 264, 341, 288}, false}});
}

TEST(WindowGame, IsPlayedFromStartToTheStoredName) {
  Sitting sitting;
  sitting.Open();
  const auto began = std::chrono::steady_clock::now();
  const Placed rest0 = sitting.Rest(0), rest1 = sitting.Rest(1), rest2 = sitting.Rest(2);
  sitting.StartGame();
  sitting.Click(100, 270, 2);  // ends that game and begins another
  sitting.AwaitHover("while hovering", {rest0, rest1, rest2}, 1);
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

  EXPECT_EQ(sitting.player->Titles(), std::vector<std::string>{"Sorvex - Theme1"}) << "only the last game reports";
  const std::string table = ReadWholeFile(sitting.ThemeFile("HighScores.ini"));
  const std::string entry = "\"Ann B 2nd\"\r\n\"";
  const std::string& before = sitting.theme.highScores;
  EXPECT_TRUE(table.starts_with(entry) && table.ends_with("\"\r\n" + before.substr(0, before.size() / 10 * 9)))
      << table;
  const double seconds = std::stod(table.substr(table.find("\r\n\"", entry.size()) + 3));
  EXPECT_GT(seconds, 0);
  EXPECT_LT(seconds, std::chrono::duration<double>(std::chrono::steady_clock::now() - began).count());
}

}  // namespace
}  // namespace sorvex
