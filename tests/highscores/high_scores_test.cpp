// SPDX-License-Identifier: MIT
// The table, its file, the place of a new time, the panel.
#include <gtest/gtest.h>

#include "highscores/highscore_table.h"
#include "highscores/record_high_score.h"
#include "support/story.h"

namespace sorvex {
namespace {

using Box = HeadlessDesktop::Box;
using Names = std::vector<std::string>;

const Box kNotFound{"Highscore file not found", "File not found", BoxIcon::Exclamation};
constexpr char kDefault[] = "Nobody|00/00/00|100";

TestTheme ThemeWithScores(const std::string& file) {
  TestTheme theme = CupTheme(1);
  theme.highScores = file;
  return theme;
}

TEST(Table, IsReadInOrderWhateverTheLines) {
  std::string thirty, rows, more;
  for (int i = 0; i < 10; ++i) {
    const std::string n = std::to_string(i);
    thirty += "\"P" + n + "\"\r\n\"d" + n + "\"\r\n\"" + n + "\"\r\n";
    rows += "\"P" + n + "\",\"d" + n + "\"," + n + "\n";
  }
  more = thirty + "\"after\"\r\n\"the\"\r\n\"30th\"\r\n";
  for (const std::string& file : {thirty, rows, more}) {
    Story story({ThemeWithScores(file)});
    EXPECT_EQ(story.Rows()[0], "P0|d0|0");
    EXPECT_EQ(story.Rows()[9], "P9|d9|9");
    SaveHighScores(story.desktop, story.form, "Theme1");
    EXPECT_EQ(ReadWholeFile(story.ThemeFile("HighScores.ini")), thirty);
  }
}

TEST(Table, RowsWithoutATimeAreDefaultRows) {
  const struct {
    std::string file;
    Names firstRows;
  } cases[] = {
      {"\"A\"\r\n\"d\"\r\n\"\"\r\n\"B\"\r\n\"e\"\r\n\"2\"\r\n", {kDefault, "B|e|2", kDefault}},
      {"A,d\r\n\r\nB,e,2", {kDefault, "B|e|2", kDefault}},
      {"A,d,1\r\nB,e", {"A|d|1", kDefault, kDefault}},  // ends early
      {"", {kDefault, kDefault, kDefault}},
      {"\"\",\"\",\"1\"", {"||1", kDefault, kDefault}},
      {"Zo\xEB,d,1", {"Zo\xC3\xAB|d|1", kDefault, kDefault}},
  };
  for (const auto& c : cases) {
    Story story({CupTheme(1)});
    WriteFile(story.ThemeFile("HighScores.ini"), c.file);
    LoadHighScores(story.desktop, story.form, "Theme1");
    const Names rows = story.Rows();
    EXPECT_EQ(Names(rows.begin(), rows.begin() + 3), c.firstRows) << c.file;
    EXPECT_EQ(rows[9], kDefault);
  }
}

TEST(Table, IsFoundInAnotherCaseAndKeepsThatName) {
  Story story({ThemeWithScores("")});
  WriteFile(story.ThemeFile("HIGHSCORES.INI"), HighScoreFile({"7"}));
  story.form.cmdShowHighscores.Click();
  EXPECT_EQ(story.Rows()[0], "P0|01/02/03|7");
  RecordHighScore(story.desktop, story.form, "Theme1", 3);
  EXPECT_FALSE(std::filesystem::exists(story.ThemeFile("HighScores.ini")));
  EXPECT_EQ(ReadWholeFile(story.ThemeFile("HIGHSCORES.INI")).substr(0, 24), "\"\"\r\n\"03/14/26\"\r\n\"3\"\r\n\"P0");
}

TEST(Table, AMissingFileIsReportedAtEveryLoadAndMadeByTheFirstRecord) {
  Story story({ThemeWithScores("")});
  EXPECT_EQ(story.desktop.Boxes, std::vector<Box>{kNotFound});
  EXPECT_EQ(story.Rows(), Names(10, kDefault));
  bool panelWaited = false;
  story.desktop.WhileBoxOpen = [&](const Box&) { panelWaited = !story.form.picHighScores.Visible; };
  story.form.cmdShowHighscores.Click();
  EXPECT_EQ(story.desktop.Boxes, (std::vector<Box>{kNotFound, kNotFound}));
  EXPECT_TRUE(panelWaited);
  RecordHighScore(story.desktop, story.form, "Theme1", 50);
  story.form.cmdShowHighscores.Click();
  EXPECT_EQ(story.desktop.Boxes.size(), 2U);
  EXPECT_EQ(story.Rows()[0], "|03/14/26|50");
}

TEST(Recording, TakesTheLowestRowWithAGreaterTime) {
  const std::vector<std::string> full = {"1", "2", "3", "4", "5", "6", "7", "8", "9", "55"};
  const struct {
    const char* what;
    std::vector<std::string> times;
    double time;
    int row;  // -1: no place
    const char* text;
  } cases[] = {
      {"default rows", {}, 42.5, 0, "42.5"},
      {"as slow as the default rows", {}, 100, -1, ""},
      {"below its equals", {"10", "20", "20", "30"}, 20, 3, "20"},
      {"the last row", full, 54.99, 9, "54.99"},
      {"a tie with the last row", full, 55, -1, ""},
      {"the fastest", full, .75, 0, "0.75"},
      {"unsorted: the scan does not stop", {"50", "10", "60", "20"}, 30, 0, "30"},
      {"unsorted: past a faster row", {"10", "50", "20", "60"}, 30, 1, "30"},
      {"times read up to the first other character", {"12,5", "12.5s", " 13"}, 12.2, 1, "12.2"},
      {"text without a number counts as 0", {"abc", "x", "99"}, 37, 2, "37"},
  };
  for (const auto& c : cases) {
    Story story({ThemeWithScores(HighScoreFile(c.times))});
    Names expected = story.Rows();
    if (c.row >= 0) {
      expected.insert(expected.begin() + c.row, std::string("Ann|03/14/26|") + c.text);
      expected.pop_back();
    }
    story.desktop.TypeName = [] { return "Ann"; };
    RecordHighScore(story.desktop, story.form, "Theme1", c.time);
    EXPECT_EQ(story.Rows(), expected) << c.what;
    EXPECT_EQ(story.desktop.Prompts.size(), c.row >= 0 ? 1U : 0U) << c.what;
    LoadHighScores(story.desktop, story.form, "Theme1");
    EXPECT_EQ(story.Rows(), expected) << c.what << ": the file agrees";
  }
}

TEST(Panel, HasTenRowsAndIsRereadAtEveryShowing) {
  Story story({ThemeWithScores(HighScoreFile({"5"}))});
  frmMain& form = story.form;
  EXPECT_FALSE(form.picHighScores.Visible);
  form.cmdShowHighscores.Click();
  EXPECT_TRUE(form.picHighScores.Visible);
  for (int row = 0; row < 10; ++row) {
    EXPECT_EQ(form.lblHighNum(row).Caption, row == 0 ? "1." : std::to_string(row + 1) + ". ");
    for (auto* column : {&form.lblHighNum, &form.lblHighName, &form.lblHighDate, &form.lblHighTime}) {
      const Label& label = (*column)(row);
      EXPECT_EQ(label.Top, static_cast<float>(32 + 21 * row)) << label.Name;
      EXPECT_TRUE(label.Visible);
      EXPECT_EQ(label.Container, &form.picHighScores);
      EXPECT_EQ(label.Left, (*column)(0).Left);
    }
  }
  form.cmdHideScores.Click();
  EXPECT_FALSE(form.picHighScores.Visible);
  WriteFile(story.ThemeFile("HighScores.ini"), HighScoreFile({"6"}));
  form.cmdShowHighscores.Click();
  EXPECT_EQ(story.Rows()[0], "P0|01/02/03|6");
  form.picHighScores.Paint();
  EXPECT_EQ(form.cmdHideScores.Top, 250);
}

TEST(Panel, StaysShownWhenAGameStarts) {
  Story story;
  story.form.cmdShowHighscores.Click();
  story.Start().Frames(2).Then([&] { EXPECT_TRUE(story.form.picHighScores.Visible); });
  story.Then([&] { story.form.cmdHideScores.Click(); }).Frames(1).Then([&] { story.form.cmdShowHighscores.Click(); });
  EXPECT_EQ(story.Run(), Story::End::ScriptEnded);
  EXPECT_TRUE(story.form.picHighScores.Visible);
}

}  // namespace
}  // namespace sorvex
