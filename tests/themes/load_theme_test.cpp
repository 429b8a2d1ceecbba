// SPDX-License-Identifier: MIT
// What a loaded theme leaves behind, and what becomes of one that cannot be loaded.
#include "themes/load_theme.h"

#include <gtest/gtest.h>

#include "highscores/record_high_score.h"
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

// All that a theme load writes, but for the pictures themselves.
auto Snapshot(const Story& story) {
  const frmMain& form = story.form;
  Names texts = story.Rows();
  for (const std::string& text : {form.Caption, form.lblTime.Caption, form.HitTubeWav, form.PutInContWav,
                                  form.PickupWav, form.LetGoWav, form.ThemeDescription, form.ThemeDate})
    texts.push_back(text);
  return std::tuple(static_cast<const ItemTable&>(story.state), texts, Integer{story.state.PlainX(0)},
                    Integer{story.state.PlainY(0)}, form.PicSprite.Count(), form.PicContMask.Count());
}

TEST(ALoadedTheme, HasAsManyPicturesAsItemsWhateverWasLoadedBefore) {
  Story story({CupTheme(3), CupTheme(10, "Ten"), CupTheme(21, "Full"), CupTheme(0, "Empty")});
  const auto fresh = Snapshot(story);
  for (const auto& [name, elements] :
       {std::pair{"Ten", 10}, {"Theme1", 3}, {"Full", 21}, {"Full", 21}, {"Empty", 1}, {"Theme1", 3}}) {
    story.state.CurItem = story.state.CurCont = static_cast<Integer>(std::max<Long>(0, story.state.LastItem));
    Choose(story, name);
    for (auto* array : {&story.form.PicSprite, &story.form.PicMask, &story.form.picCont, &story.form.PicContMask})
      EXPECT_EQ(array->Count(), elements) << name;
  }
  EXPECT_EQ(Snapshot(story), fresh);
  EXPECT_TRUE(story.desktop.Boxes.empty());
}

TEST(ALoadedTheme, IsFoundWhateverTheCaseOfItsFilesAndLeavesNothingToTheNext) {
  Story story({CupTheme(2), CupTheme(2, "Shout")});
  const auto fresh = Snapshot(story);
  WriteFile(story.ThemeFile("THEMEDETAILS.INI", "Shout"), "\"One, two\"\r\n\"May\"\r\n");
  WriteFile(story.ThemeFile("pickup.WAV", "Shout"), "");
  for (const auto& [name, upper] :
       {std::pair{"Theme.ini", "THEME.INI"}, {"sm1.bmp", "SM1.BMP"}, {"HighScores.ini", "HIGHSCORES.INI"}})
    fs::rename(story.ThemeFile(name, "Shout"), story.ThemeFile(upper, "Shout"));
  Choose(story, "Shout");
  EXPECT_TRUE(story.desktop.Boxes.empty());
  EXPECT_TRUE(fs::exists(story.form.PickupWav));
  EXPECT_EQ(story.desktop.PreparedWaves.size(), 4U);
  EXPECT_EQ(story.form.ThemeDescription + story.form.ThemeDate, "One, twoMay");
  RecordHighScore(story.desktop, story.form, "Shout", 3);
  EXPECT_NE(ReadWholeFile(story.ThemeFile("HIGHSCORES.INI", "Shout")), HighScoreFile({})) << "a record keeps the name";
  Choose(story, "Theme1");
  EXPECT_EQ(Snapshot(story), fresh);
}

// --- themes that cannot be loaded ---

TEST(TheFallback, LoadsTheDefaultThemeOnceAndMakesItCurrent) {
  const struct {
    const char* file;
    std::optional<std::string> text;  // none: the file is missing
    Box box;
  } cases[] = {
      {"Theme2.ini", {}, Missing("Bad")},
      {"", {}, Missing("Bad")},  // the folder
      {"Theme.ini", "1\r\n2\r\nabc\r\n4\r\n", Refused("Bad: Theme.ini, line 3: 'abc' is not a number")},
      {"pS.bmp", BmpBytes(Bitmap({9, 9})).replace(30, 1, "\x09"),
       Refused("Bad: pS.bmp: not a bitmap that can be read")},
      {"cm4.bmp", {}, Refused("Bad: cm4.bmp: not found, or not a file that can be opened")},
  };
  for (const auto& [file, text, box] : cases) {
    SCOPED_TRACE(file);
    Story story({CupTheme(2), CupTheme(5, "Bad")});
    const auto loaded = Snapshot(story);
    fs::remove_all(story.ThemeFile(file, "Bad"));
    if (text) WriteFile(story.ThemeFile(file, "Bad"), *text);
    story.desktop.WhileBoxOpen = [&](const Box&) { EXPECT_EQ(Snapshot(story), loaded) << "changed before the box"; };
    Choose(story, "Bad");
    EXPECT_EQ(story.state.ThemeName, "Theme1");
    EXPECT_EQ(Snapshot(story), loaded);
    story.Start().Frames(1).Run();
    EXPECT_EQ(story.desktop.Boxes, std::vector<Box>{box}) << "once, and not again at Start";
  }
}

TEST(TheFallback, EndsWhenTheDefaultThemeFailsToo) {
  Story story({CupTheme(2), CupTheme(1, "Bad")});
  const auto loaded = Snapshot(story);
  fs::remove(story.ThemeFile("Theme.ini", "Bad"));
  const auto boxes = [&](const char* chosen) {
    story.desktop.Boxes.clear();
    Choose(story, chosen);
    EXPECT_EQ(Snapshot(story), loaded);
    EXPECT_EQ(story.state.ThemeName, chosen) << "not the one that could not be loaded either";
    return story.desktop.Boxes;
  };
  fs::remove(story.ThemeFile("Theme2.ini"));
  EXPECT_EQ(boxes("Bad"), (std::vector<Box>{Missing("Bad"), Missing("Theme1"), kNoDefault}));
  EXPECT_EQ(boxes("Theme1"), (std::vector<Box>{Missing("Theme1"), kNoDefault}));
  fs::remove(story.ThemeFile("Theme.ini"));
  EXPECT_EQ(boxes("Bad"), (std::vector<Box>{Missing("Bad"), kNoDefault}));
}

TEST(TheFallback, PlaysTheThemeOnTheFieldWhenNoneLoadsAnyMore) {
  Story story({CupTheme(2)});
  const ItemTable start = story.state;
  const auto breakThemes = [&] { fs::remove(story.ThemeFile("Theme.ini")); };
  story.Start().PutIn(0).Move(90, 30).Then(breakThemes).Start().Then([&] {
    EXPECT_EQ(static_cast<const ItemTable&>(story.state), start);
    EXPECT_EQ(story.Field(),
              PaintField(story.ThemeFile(""), TestTheme(), {{0, 25, 63}, {1, 85, 63}}, Placed{0, 20, 20}));
  });
  story.Wait(500).PutIn(0).PutIn(1).Frames(1);
  // That game is over: nothing runs.
  const auto shown = [&story] { return story.desktop.FramesShown; };
  int before = 0;
  story.Then([&] { before = shown(); }).Start().Frames(2).Then([&] { EXPECT_EQ(shown(), before); });
  EXPECT_EQ(story.Run(), Story::End::ScriptEnded);
  const Box over{"Game Over\r\nYou took: 0.5 seconds", "Sorvex", BoxIcon::None};
  EXPECT_EQ(story.desktop.Boxes,
            (std::vector<Box>{Missing("Theme1"), kNoDefault, over, Missing("Theme1"), kNoDefault}));
}

TEST(TheFallback, WithNoThemeAtAllLeavesTheWindowUsable) {
  Story story(std::vector<TestTheme>{});
  EXPECT_EQ(story.desktop.Boxes, (std::vector<Box>{Missing("Theme1"), kNoDefault}));
  EXPECT_EQ(story.form.Width, 5150);
  EXPECT_EQ(story.Rows()[9], "n|d|190");
  story.Then([&] { story.form.Command1.Click(); }).Frames(1).Then([&] { story.form.cmdShowHighscores.Click(); });
  EXPECT_EQ(story.Run(), Story::End::ScriptEnded);
  EXPECT_EQ(story.desktop.FramesShown, 0);
  EXPECT_EQ(story.desktop.Boxes.size(), 5U);
  EXPECT_EQ(story.Rows()[9], "Nobody|00/00/00|100");
}

}  // namespace
}  // namespace sorvex
