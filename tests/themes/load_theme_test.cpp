// SPDX-License-Identifier: MIT
// What a loaded theme leaves behind, and what becomes of one that cannot be loaded.
#include "themes/load_theme.h"

#include <gtest/gtest.h>

#include "support/story.h"

namespace sorvex {
namespace {

namespace fs = std::filesystem;
using Box = HeadlessDesktop::Box;
using Names = std::vector<std::string>;

Box Missing(const std::string& name) {
  return {"There is an important file missing. Can not load theme " + name + "\r\nLoading default theme..",
          "File(s) missing", BoxIcon::Exclamation};
}
Box Refused(const std::string& reason) {
  return {reason + "\r\nLoading default theme..", "Theme not loaded", BoxIcon::Exclamation};
}
const Box kNoDefault{"Can't find Default theme", "Theme not found", BoxIcon::Exclamation};

void Choose(Story& story, const std::string& name) {
  story.state.ThemeName = name;
  LoadTheme(story.program.game, name);
}

// All that a theme load writes, as text.
std::string Snapshot(const Story& story) {
  const frmMain& form = story.form;
  const modVariables& state = story.state;
  std::string text = form.Caption + "|" + form.lblTime.Caption + "|" + form.HitTubeWav + "|" + form.PutInContWav + "|" +
                     form.PickupWav + "|" + form.LetGoWav + "|" + form.ThemeDescription + "|" + form.ThemeDate;
  for (Long i = 0; i < kMostItems; ++i)
    for (const int value : {int{state.ItemX(i)}, int{state.ItemY(i)}, int{state.ContX(i)}, int{state.ContY(i)},
                            int{state.ItemInPlay(i)}, int{state.ContInPlay(i)}})
      text += " " + std::to_string(value);
  for (const int value : {state.LastItem, Long{state.PlainX(0)}, Long{state.PlainY(0)}, form.PicSprite.Count(),
                          form.PicMask.Count(), form.picCont.Count(), form.PicContMask.Count()})
    text += " " + std::to_string(value);
  for (const std::string& row : story.Rows()) text += row;
  return text;
}

TEST(LoadedTheme, FillsTheWindow) {
  TestTheme theme = CupTheme(3);
  theme.field = {400, 250};
  Story story({theme});
  const frmMain& form = story.form;
  EXPECT_TRUE(story.desktop.Boxes.empty());
  EXPECT_EQ(form.Caption, "Sorvex - Theme1");
  EXPECT_EQ(form.lblTime.Caption, "00.00");
  EXPECT_EQ(story.state.LastItem, 2);
  EXPECT_EQ(story.state.PlainX(0), 250);
  EXPECT_EQ(story.state.PlainY(0), 180);
  EXPECT_EQ(form.PicCanvas.ScaleSize(), (Size{400, 250}));
  EXPECT_EQ(form.PicCanvas.Left, 8);
  EXPECT_EQ(form.picCont(2).ScaleSize(), (Size{40, 60}));
  EXPECT_EQ(form.PicPlainSprite(0).OuterSize(), (Size{42, 32}));
  EXPECT_FALSE(form.PicSprite(2).Visible);
  EXPECT_TRUE(form.StopRendering);
  const fs::path folder = story.ThemeFile("Theme.ini").parent_path();
  const Names waves = {folder / "HitTube.wav", folder / "PutInCont.wav", folder / "Pickup.wav", folder / "LetGo.wav"};
  EXPECT_EQ((Names{form.HitTubeWav, form.PutInContWav, form.PickupWav, form.LetGoWav}), waves);
  EXPECT_EQ(story.desktop.PreparedWaves, waves);
}

TEST(LoadedTheme, HasAsManyPicturesAsItems) {
  Story story({CupTheme(3), CupTheme(10, "Ten"), CupTheme(21, "Full"), CupTheme(0, "Empty")});
  const struct {
    const char* name;
    int elements;
  } cases[] = {{"Ten", 10}, {"Theme1", 3}, {"Full", 21}, {"Full", 21}, {"Empty", 1}, {"Ten", 10}};
  for (const auto& c : cases) {
    story.state.CurItem = story.state.CurCont = static_cast<Integer>(std::max<Long>(0, story.state.LastItem));
    Choose(story, c.name);
    for (auto* array : {&story.form.PicSprite, &story.form.PicMask, &story.form.picCont, &story.form.PicContMask})
      EXPECT_EQ(array->Count(), c.elements) << c.name;
    EXPECT_EQ(story.state.ItemX(20), c.elements == 21 ? 20 + 60 * 20 + 5 : 0);
  }
  EXPECT_TRUE(story.desktop.Boxes.empty());
}

TEST(LoadedTheme, IsTheSameWhenLoadedTwice) {
  Story story({CupTheme(3)});
  const std::string once = Snapshot(story);
  Choose(story, "Theme1");
  EXPECT_EQ(Snapshot(story), once);
}

TEST(LoadedTheme, HasDetailsOfItsOwnOnly) {
  Story story({CupTheme(1), CupTheme(1, "Other")});
  WriteFile(story.ThemeFile("ThemeDetails.ini", "Other"), "\"One, two\"\r\n\"May\"\r\n");
  Choose(story, "Other");
  EXPECT_EQ(story.form.ThemeDescription, "One, two");
  EXPECT_EQ(story.form.ThemeDate, "May");
  WriteFile(story.ThemeFile("ThemeDetails.ini"), "only a description");
  Choose(story, "Theme1");
  EXPECT_EQ(story.form.ThemeDescription, "only a description");
  EXPECT_EQ(story.form.ThemeDate, "");
  fs::remove(story.ThemeFile("ThemeDetails.ini"));
  Choose(story, "Theme1");
  EXPECT_EQ(story.form.ThemeDescription, "");
  EXPECT_TRUE(story.desktop.Boxes.empty());
}

TEST(LoadedTheme, IsFoundWhateverTheCaseOfItsFiles) {
  Story story({CupTheme(1), CupTheme(2, "Shout")});
  for (const char* name : {"Theme.ini", "Theme2.ini", "bg.bmp", "sm1.bmp", "HighScores.ini"}) {
    std::string upper(name);
    for (char& c : upper) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    fs::rename(story.ThemeFile(name, "Shout"), story.ThemeFile(upper, "Shout"));
  }
  WriteFile(story.ThemeFile("pickup.WAV", "Shout"), "");
  Choose(story, "Shout");
  EXPECT_TRUE(story.desktop.Boxes.empty());
  EXPECT_EQ(story.state.LastItem, 1);
  EXPECT_EQ(fs::path(story.form.PickupWav).filename(), "pickup.WAV");
}

TEST(LoadedTheme, ResizesTheFieldAtOnceAndTheWindowAtTheNextStart) {
  TestTheme wide = CupTheme(1, "Wide");
  wide.field = {500, 240};
  Story story({CupTheme(1), wide});
  const float windowBefore = story.form.Width;
  Choose(story, "Wide");
  EXPECT_EQ(story.form.PicCanvas.ScaleSize(), (Size{500, 240}));
  EXPECT_EQ(story.form.Width, windowBefore);
  story.Start().Frames(1);
  story.Run();
  EXPECT_EQ(story.form.Width, 504 * 15 + 350);
  EXPECT_EQ(story.form.PicBackbuff.ScaleSize(), (Size{500, 240}));
}

// --- themes that cannot be loaded ---

TEST(Fallback, LoadsTheDefaultThemeOnceAndMakesItCurrent) {
  const struct {
    const char* what;
    std::function<void(const fs::path&)> spoil;
    Box box;
  } cases[] = {
      {"no Theme.ini", [](const fs::path& f) { fs::remove(f / "Theme.ini"); }, Missing("Bad")},
      {"no Theme2.ini", [](const fs::path& f) { fs::remove(f / "Theme2.ini"); }, Missing("Bad")},
      {"no folder", [](const fs::path& f) { fs::remove_all(f); }, Missing("Bad")},
      {"a folder in its place",
       [](const fs::path& f) {
         fs::remove(f / "Theme.ini");
         fs::create_directory(f / "Theme.ini");
       },
       Missing("Bad")},
      {"two that differ in case",
       [](const fs::path& f) {
         fs::rename(f / "Theme2.ini", f / "THEME2.INI");
         WriteFile(f / "theme2.ini", "1,2");
       },
       Missing("Bad")},
      {"no number", [](const fs::path& f) { WriteFile(f / "Theme.ini", "1\r\n2\r\nabc\r\n4\r\n"); },
       Refused("Bad: Theme.ini, line 3: 'abc' is not a number")},
      {"one number", [](const fs::path& f) { WriteFile(f / "Theme2.ini", "250\r\n"); },
       Refused("Bad: Theme2.ini: fewer than two numbers")},
      {"no bitmap", [](const fs::path& f) { WriteFile(f / "sm3.bmp", "hello"); },
       Refused("Bad: sm3.bmp: not a bitmap that can be read")},
      {"a bitmap cut short", [](const fs::path& f) { fs::resize_file(f / "bg.bmp", 5000); },
       Refused("Bad: bg.bmp: not a bitmap that can be read")},
      {"a kind the reader refuses",
       [](const fs::path& f) {
         std::string b = ReadWholeFile(f / "pS.bmp");
         b[28] = 8;
         WriteFile(f / "pS.bmp", b);
       },
       Refused("Bad: pS.bmp: not a bitmap that can be read")},
      {"a missing bitmap", [](const fs::path& f) { fs::remove(f / "cm4.bmp"); },
       Refused("Bad: cm4.bmp: not found, or not a file that can be opened")},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    TestTheme bad = CupTheme(5, "Bad");
    Story story({CupTheme(2), bad});
    const std::string loaded = Snapshot(story);
    c.spoil(story.ThemeFile("Theme.ini", "Bad").parent_path());
    bool untouched = false;
    story.desktop.WhileBoxOpen = [&](const Box&) { untouched = Snapshot(story) == loaded; };
    Choose(story, "Bad");
    EXPECT_EQ(story.desktop.Boxes, std::vector<Box>{c.box});
    EXPECT_TRUE(untouched) << "something changed before the box";
    EXPECT_EQ(story.state.ThemeName, "Theme1");
    EXPECT_EQ(Snapshot(story), loaded);
    story.desktop.Boxes.clear();
    story.Start().Frames(1);
    story.Run();
    EXPECT_TRUE(story.desktop.Boxes.empty()) << "the boxes came again at Start";
  }
}

TEST(Fallback, EndsWhenTheDefaultThemeFailsToo) {
  Story story({CupTheme(2), CupTheme(1, "Bad")});
  const std::string loaded = Snapshot(story);
  fs::remove(story.ThemeFile("Theme.ini", "Bad"));
  const auto boxes = [&] {
    story.desktop.Boxes.clear();
    Choose(story, "Bad");
    EXPECT_EQ(Snapshot(story), loaded);
    return story.desktop.Boxes;
  };
  fs::rename(story.ThemeFile("Theme2.ini"), story.ThemeFile("away"));
  EXPECT_EQ(boxes(), (std::vector<Box>{Missing("Bad"), Missing("Theme1"), kNoDefault}));
  story.desktop.Boxes.clear();
  Choose(story, "Theme1");
  EXPECT_EQ(story.desktop.Boxes, (std::vector<Box>{Missing("Theme1"), kNoDefault}));
  fs::rename(story.ThemeFile("away"), story.ThemeFile("Theme2.ini"));
  fs::resize_file(story.ThemeFile("bg.bmp"), 60);
  EXPECT_EQ(boxes(),
            (std::vector<Box>{Missing("Bad"), Refused("Theme1: bg.bmp: not a bitmap that can be read"), kNoDefault}));
  fs::remove(story.ThemeFile("Theme.ini"));
  EXPECT_EQ(boxes(), (std::vector<Box>{Missing("Bad"), kNoDefault}));
}

TEST(Fallback, WithNoThemeAtAllTheWindowStaysUsable) {
  Story story(std::vector<TestTheme>{});
  EXPECT_EQ(story.desktop.Boxes, (std::vector<Box>{Missing("Theme1"), kNoDefault}));
  EXPECT_EQ(story.form.PicCanvas.OuterSize(), (Size{320, 240}));
  EXPECT_EQ(story.form.Width, 5150);
  EXPECT_EQ(story.Rows()[9], "n|d|190");
  story.Then([&] { story.form.Command1.Click(); });
  story.Then([&] { EXPECT_EQ(story.desktop.FramesShown, 0); });
  story.Then([&] { story.form.cmdShowHighscores.Click(); });
  EXPECT_EQ(story.Run(), Story::End::ScriptEnded);
  EXPECT_EQ(story.desktop.Boxes.size(), 5U);
  EXPECT_EQ(story.Rows()[9], "Nobody|00/00/00|100");
}

}  // namespace
}  // namespace sorvex
