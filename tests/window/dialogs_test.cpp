// SPDX-License-Identifier: MIT
// The chooser and the about box, by mouse and by key.
#include <gtest/gtest.h>

#include "window/sitting.h"

namespace sorvex {
namespace {

using namespace std::chrono_literals;

TEST(WindowChooser, ShowsTheChosenThemeAtOnce) {
  Sitting sitting(CupTheme(1));
  TestTheme other = CupTheme(2, "Other Θέμα 日本");
  other.field = {200, 150};
  other.targetX = 150;
  other.targetY = 100;
  WriteTheme(sitting.folder.Path() / "program", other);
  sitting.Open();
  sitting.Click(316, 276);
  sitting.Await("Choose a theme");
  sitting.player->Type("o");  // the list has the focus: a letter selects
  sitting.player->Tap("Return");
  sitting.Await("Sorvex - " + other.name);
  const auto& [first, second] = std::tie(other.items[0], other.items[1]);
  const Bitmap waiting =
      PaintField(sitting.folder.Path() / "program" / other.name, other,
                 {{0, first.x, first.y}, {1, second.x, second.y}}, Placed{0, first.contX, first.contY});
  EXPECT_TRUE(WaitUntil([&] { return sitting.Look(Rectangle::At(10, 10, other.field)) == waiting; }));

  sitting.player->Tap("F3");
  sitting.Await("Choose a theme");
  sitting.player->Type("t");
  sitting.player->Tap("Return");
  sitting.Await("Sorvex - Theme1");
  sitting.AwaitField("before Start", {sitting.Rest(0)}, sitting.Cup(0));
}

TEST(WindowBoxes, FitTheScreenAtOnceHoweverLongTheirText) {
  Sitting sitting(CupTheme(1));
  WriteFile(sitting.ThemeFile("ThemeDetails.ini"), "\"" + std::string(60000, 'x') + "\",2026\r\n");
  sitting.Open();
  const auto asked = std::chrono::steady_clock::now();
  sitting.player->Tap("F2");
  const Rectangle box = sitting.player->ClientArea(sitting.Await("Theme Details"));
  EXPECT_LT(std::chrono::steady_clock::now() - asked, 5s) << "on a busy machine";
  EXPECT_TRUE(Intersection(box, {0, 0, 1280, 1000}) == box);
}

TEST(WindowChooser, NoFolderIsChosenUntilDownChoosesTheFirst) {
  Sitting sitting(CupTheme(1));
  sitting.Open();
  sitting.player->Tap("F3");
  sitting.Await("Choose a theme");
  sitting.player->Tap("Return");
  EXPECT_FALSE(WaitUntil([&] { return sitting.player->Find("Choose a theme") == 0; }, 300ms));
  sitting.player->Tap("Down");
  sitting.Answer("Choose a theme");
  sitting.Await("Sorvex - Theme1");
}

TEST(WindowAbout, TheLogoFollowsTheControlledPointerAndIsBackSoonAfterTheRelease) {
  Sitting sitting(CupTheme(1));
  sitting.Open();
  sitting.Click(175, 271);
  Rectangle box = sitting.player->ClientArea(sitting.Await("About"));
  // Windows draws a tool window's frame itself, inside of what the screen takes for the window.
  if (sitting.system == System::Windows) box = {box.left + 3, box.top + 19, box.right - 3, box.bottom - 3};
  EXPECT_TRUE(box == Rectangle::At(box.left, box.top, {312, 213}));
  constexpr Pixel yellow = 0xFFFFFF00;
  const auto logoAtHome = [&] {
    return sitting.player->Look(Rectangle::At(box.left + 40, box.top + 50, {1, 1})).At(0, 0) != yellow;
  };
  EXPECT_TRUE(WaitUntil(logoAtHome));
  sitting.player->Move(box.left + 50, box.top + 50);
  sitting.player->Key("Control_L", true);
  sitting.player->Press();
  sitting.player->Move(box.left + 500, box.top + 100);  // outside the window
  EXPECT_TRUE(WaitUntil([&] { return !logoAtHome(); }));
  sitting.player->Release();
  sitting.player->Key("Control_L", false);
  EXPECT_TRUE(WaitUntil(logoAtHome, 1000ms)) << "200 ms, and what a busy machine adds";
  sitting.Answer("About", "Escape");
  sitting.Await("Sorvex - Theme1");
  sitting.player->Tap("F1");
  sitting.Answer("About", "Return");
}

}  // namespace
}  // namespace sorvex
