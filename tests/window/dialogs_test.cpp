// SPDX-License-Identifier: MIT
// The chooser and the about box, by mouse and by key.
#include <gtest/gtest.h>

#include "window/sitting.h"

namespace sorvex {
namespace {

using namespace std::chrono_literals;

Rectangle ListAfterF3(Sitting& sitting) {
  sitting.player->Tap("F3");
  return sitting.player->ClientArea(sitting.Await("Choose a theme"));
}

// How far below the window's top the row of one of two themes lies. Windows sorts folders.
int RowOf(const std::string& theme, const Sitting& sitting) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(sitting.folder.Path() / "program"))
    if (entry.is_directory()) names.push_back(entry.path().filename());
  if (sitting.system == System::Windows) std::ranges::sort(names);
  return names.front() == theme ? 18 : 34;
}

TEST(WindowChooser, ShowsTheChosenThemeAtOnceAndCancelEndsAGame) {
  Sitting sitting(CupTheme(1));
  TestTheme other = CupTheme(2, "Other");
  other.field = {200, 150};
  other.targetX = 150;
  other.targetY = 100;
  WriteTheme(sitting.folder.Path() / "program", other);
  sitting.Open();
  sitting.Click(316, 276);
  sitting.Await("Choose a theme");
  sitting.player->Type("o");  // the list has the focus: a letter selects
  sitting.player->Tap("Return");
  sitting.Await("Sorvex - Other");
  const FieldPainter painter(sitting.folder.Path() / "program/Other", other.targetX, other.targetY);
  const TestItem& first = other.items[0];
  const Bitmap waiting = painter.Paint({{0, first.x, first.y}, {1, other.items[1].x, other.items[1].y}},
                                       Placed{0, first.contX, first.contY});
  EXPECT_TRUE(WaitUntil([&] { return sitting.Look(Rectangle::At(10, 10, other.field)) == waiting; }));

  const Rectangle list = ListAfterF3(sitting);
  sitting.player->Move(list.left + 40, list.top + RowOf("Theme1", sitting));
  sitting.player->Press();
  WaitUntil([] { return false; }, 100ms);
  sitting.player->Release();
  sitting.player->Tap("Return");
  sitting.Await("Sorvex - Theme1");
  sitting.AwaitField("before Start", {sitting.Rest(0)}, sitting.Cup(0));
  sitting.StartGame();
  sitting.player->Tap("F3");
  sitting.Await("Choose a theme");
  sitting.player->Tap("Escape");
  EXPECT_TRUE(WaitUntil([&] { return sitting.player->Find("Choose a theme") == 0; }));
  sitting.AwaitField("after Cancel", {sitting.Rest(0)}, sitting.Cup(0));
  const Rectangle field = Rectangle::At(10, 10, sitting.theme.field);
  const Bitmap still = sitting.Look(field);
  sitting.Hover(35, 70);
  sitting.player->Press();
  sitting.Hover(37, 60);
  EXPECT_FALSE(WaitUntil([&] { return sitting.Look(field) != still; }, 500ms)) << "the game had ended";
}

TEST(WindowBoxes, FitTheScreenAtOnceHoweverLongTheirText) {
  Sitting sitting(CupTheme(1));
  sitting.Open();
  for (const std::string& text : {std::string("Without a touch. "), std::string("x"), std::string("\r\n")}) {
    std::string description;
    while (description.size() + text.size() < 64000) description += text;
    WriteFile(sitting.ThemeFile("ThemeDetails.ini"), "\"" + description + "\",2026\r\n");
    sitting.Click(100, 270);  // reads it
    sitting.AwaitField("at the start", {sitting.Rest(0)}, sitting.Cup(0));
    const auto asked = std::chrono::steady_clock::now();
    sitting.player->Tap("F2");
    const Rectangle box = sitting.player->ClientArea(sitting.Await("Theme Details"));
    EXPECT_LT(std::chrono::steady_clock::now() - asked, 5s) << "on a busy machine";
    EXPECT_EQ(Intersection(box, {0, 0, 1280, 1000}), box);
    sitting.Answer("Theme Details");
    sitting.Await("Sorvex - Theme1");
  }
}

TEST(WindowChooser, NoFolderIsChosenUntilDownChoosesTheFirst) {
  Sitting sitting(CupTheme(1));
  sitting.Open();
  ListAfterF3(sitting);
  if (sitting.system == System::Linux) {
    EXPECT_TRUE(WaitUntil([&] { return sitting.player->IconIsSeen(sitting.window) == true; }));
    EXPECT_TRUE(WaitUntil([&] { return sitting.player->IconIsSeen(sitting.Await("Choose a theme")) == false; }))
        << "with none of its own it would be shown its owner's";
  }
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
  EXPECT_EQ(box.Width(), 312);
  EXPECT_EQ(box.Height(), 213);
  constexpr Pixel yellow = 0xFFFFFF00;
  const auto logoAtHome = [&] {
    return sitting.player->Look(Rectangle::At(box.left + 40, box.top + 50, {1, 1})).At(0, 0) != yellow;
  };
  EXPECT_TRUE(WaitUntil(logoAtHome));
  const auto drag = [&](bool withCtrl) {
    sitting.player->Move(box.left + 50, box.top + 50);
    if (withCtrl) sitting.player->Key("Control_L", true);
    sitting.player->Press();
    sitting.player->Move(box.left + 500, box.top + 100);  // outside the window
  };
  drag(false);
  EXPECT_FALSE(WaitUntil([&] { return !logoAtHome(); }, 400ms));
  sitting.player->Release();
  drag(true);
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
