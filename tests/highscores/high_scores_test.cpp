// SPDX-License-Identifier: MIT
// The fields of a text file, the table and its file, the place of a new time, the panel.
#include <gtest/gtest.h>

#include "base/field_reader.h"
#include "highscores/highscore_table.h"
#include "highscores/record_high_score.h"
#include "support/story.h"

namespace sorvex {
namespace {

using Box = HeadlessDesktop::Box;
using Names = std::vector<std::string>;

constexpr char kDefault[] = "Nobody|00/00/00|100";

TEST(Fields, EndAtCommasAndLineEnds) {
  const std::pair<const char*, Names> cases[] = {
      {"", {}},
      {"a\nb\rc\r\n", {"a", "b", "c"}},
      {"  \t a b  ,c", {"a b", "c"}},
      {"\r\n7", {"", "7"}},
      {"a,\r\nb", {"a", "", "b"}},
      {"\"a, b\"\r\nc", {"a, b", "c"}},
      {"\"a\" dropped, b", {"a", "b"}},
      {"\"a\"\"b\"\r\nc", {"a", "c"}},
      {"\"one\r\ntwo\",c", {"one\r\ntwo", "c"}},
      {"\" a \"", {" a "}},
      {"a\"b\",c", {"a\"b\"", "c"}},
      {"\"never closed,\r\nx", {"never closed,\r\nx"}},
  };
  for (const auto& [text, expected] : cases) {
    FieldReader reader(text);
    Names fields;
    while (const auto field = reader.Next()) fields.push_back(*field);
    EXPECT_EQ(fields, expected) << text;
  }
}

TEST(TheTable, IsReadInOrderWhateverTheLinesAndWrittenInThirty) {
  std::string thirty, rows;
  for (int i = 0; i < 10; ++i) {
    const std::string n = std::to_string(i);
    thirty += "\"P" + n + "\"\r\n\"d" + n + "\"\r\n\"" + n + "\"\r\n";
    rows += "\"P" + n + "\",\"d" + n + "\"," + n + "\n";
  }
  Story story;
  for (const std::string& file : {thirty, rows, thirty + "\"after\"\r\n\"the\"\r\n\"30th\"\r\n"}) {
    WriteFile(story.ThemeFile("HighScores.ini"), file);
    LoadHighScores(story.desktop, story.form, "Theme1");
    EXPECT_EQ(story.Rows()[9], "P9|d9|9");
    SaveHighScores(story.desktop, story.form, "Theme1", [] { return true; });
    EXPECT_EQ(ReadWholeFile(story.ThemeFile("HighScores.ini")), thirty);
  }
}

TEST(TheTable, HasDefaultRowsWhereATimeIsMissing) {
  const std::pair<const char*, Names> cases[] = {
      {"\"A\"\r\n\"d\"\r\n\"\"\r\n\"B\"\r\n\"e\"\r\n\"2\"\r\n", {kDefault, "B|e|2", kDefault}},
      {"A,d,1\r\nB,e", {"A|d|1", kDefault, kDefault}},  // ends early
      {"", {kDefault, kDefault, kDefault}},
      {"\"\",\"\",\"1\"", {"||1", kDefault, kDefault}},
      {"Zo\xEB,d,1", {"Zo\xC3\xAB|d|1", kDefault, kDefault}},
  };
  Story story;
  for (const auto& [file, firstRows] : cases) {
    WriteFile(story.ThemeFile("HighScores.ini"), file);
    LoadHighScores(story.desktop, story.form, "Theme1");
    const Names rows = story.Rows();
    EXPECT_EQ(Names(rows.begin(), rows.begin() + 3), firstRows) << file;
    EXPECT_EQ(rows[9], kDefault);
  }
}

TEST(TheTable, IsReportedMissingAtEveryLoadUntilTheFirstRecordMakesIt) {
  const Box notFound{"Highscore file not found", "File not found", BoxIcon::Exclamation};
  TestTheme theme = CupTheme(1);
  theme.highScores = "";
  Story story({theme});
  EXPECT_EQ(story.Rows(), Names(10, kDefault));
  story.form.cmdShowHighscores.Click();
  EXPECT_EQ(story.desktop.Boxes, (std::vector<Box>{notFound, notFound}));
  RecordHighScore(story.desktop, story.form, "Theme1", 50);
  story.form.cmdShowHighscores.Click();
  EXPECT_EQ(story.desktop.Boxes.size(), 2U);
  EXPECT_EQ(story.Rows()[0], "|03/14/26|50");
}

TEST(ANewTime, TakesTheLowestRowWithAGreaterOne) {
  const Names full = {"1", "2", "3", "4", "5", "6", "7", "8", "9", "55"};
  const struct {
    const char* what;
    Names times;
    double time;
    int row;  // -1: no place
    const char* text;
  } cases[] = {
      {"default rows", {}, 42.5, 0, "42.5"},
      {"as slow as the default rows", {}, 100, -1, ""},
      {"below its equals", {"10", "20", "20", "30"}, 20, 3, "20"},
      {"the last row", full, 54.99, 9, "54.99"},
      {"a tie with the last row", full, 55, -1, ""},
      {"unsorted: the scan does not stop", {"50", "10", "60", "20"}, 30, 0, "30"},
      {"unsorted: past a faster row", {"10", "50", "20", "60"}, 30, 1, "30"},
      {"times read up to the first other character", {"12,5", "12.5s", " 13"}, 12.2, 1, "12.2"},
      {"text without a number counts as 0", {"abc", "x", "99"}, 37, 2, "37"},
  };
  Story story;
  story.desktop.TypeName = [] { return "A\tnn\xE2\x80\xA8 pasted"; };
  for (const auto& c : cases) {
    WriteFile(story.ThemeFile("HighScores.ini"), HighScoreFile(c.times));
    LoadHighScores(story.desktop, story.form, "Theme1");
    Names expected = story.Rows();
    if (c.row >= 0) {
      expected.insert(expected.begin() + c.row, std::string("Ann|03/14/26|") + c.text);
      expected.pop_back();
    }
    story.desktop.Prompts.clear();
    RecordHighScore(story.desktop, story.form, "Theme1", c.time);
    EXPECT_EQ(story.Rows(), expected) << c.what;
    EXPECT_EQ(story.desktop.Prompts.size(), c.row >= 0 ? 1U : 0U) << c.what;
    LoadHighScores(story.desktop, story.form, "Theme1");
    EXPECT_EQ(story.Rows(), expected) << c.what << ": the file agrees";
  }
}

// What another copy of the program, or its player, does while the name is typed.
TEST(ANewTime, TakesItsPlaceInTheTableThatIsThereWhenTheNameIsKnown) {
  Story story;
  const std::filesystem::path file = story.ThemeFile("HighScores.ini");
  const std::string mine = "Ann|03/14/26|20";
  const struct {
    const char* what;
    std::function<void()> meanwhile;
    Names rows;  // the first of them afterwards
  } cases[] = {
      {"nothing", [] {}, {"P0|01/02/03|10", mine, "P1|01/02/03|30"}},
      {"two more",
       [&] {
         WriteFile(file, HighScoreFile({"5", "10", "30"}));
       },
       {"P0|01/02/03|5", "P1|01/02/03|10", mine}},
      {"ten faster ones", [&] { WriteFile(file, HighScoreFile(Names(10, "7"))); }, Names(10, "")},
      {"the file is removed", [&] { std::filesystem::remove(file); }, {"P0|01/02/03|10", mine, "P1|01/02/03|30"}},
  };
  for (const auto& c : cases) {
    WriteFile(file, HighScoreFile({"10", "30"}));
    LoadHighScores(story.desktop, story.form, "Theme1");
    story.desktop.TypeName = [&] { return c.meanwhile(), "Ann"; };
    RecordHighScore(story.desktop, story.form, "Theme1", 20);
    Names rows = story.Rows();
    for (std::size_t row = 0; row < c.rows.size(); ++row)
      EXPECT_EQ(rows[row], c.rows[row].empty() ? "P" + std::to_string(row) + "|01/02/03|7" : c.rows[row]) << c.what;
    LoadHighScores(story.desktop, story.form, "Theme1");
    EXPECT_EQ(story.Rows(), rows) << c.what;
  }
  EXPECT_TRUE(story.desktop.Boxes.empty());
}

TEST(ANewTime, NeverOverwritesATableThatCannotBeReadNorMakesOne) {
  Story story;
  const std::filesystem::path file = story.ThemeFile("HighScores.ini");
  const std::string tooLong = std::string(64 << 10, 'x') + HighScoreFile({"10"});
  for (const auto& [table, name] :
       {std::pair{tooLong, std::string("Ann")}, {HighScoreFile({"10"}), std::string(64 << 10, 'x')}}) {
    WriteFile(file, table);
    story.desktop.TypeName = [&] { return name; };
    try {
      RecordHighScore(story.desktop, story.form, "Theme1", 5);
      ADD_FAILURE() << "saved";
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Number(), 75);
    }
    EXPECT_EQ(ReadWholeFile(file), table);
    EXPECT_EQ(story.Rows()[0], name + "|03/14/26|5") << "the panel keeps it";
  }
}

TEST(ThePanel, HasTenRowsAndIsRereadAtEveryShowing) {
  Story story;
  frmMain& form = story.form;
  EXPECT_FALSE(form.picHighScores.Visible);
  form.cmdShowHighscores.Click();
  for (int row = 0; row < 10; ++row) {
    EXPECT_EQ(form.lblHighNum(row).Caption, row == 0 ? "1." : std::to_string(row + 1) + ". ");
    for (auto* column : {&form.lblHighNum, &form.lblHighName, &form.lblHighDate, &form.lblHighTime}) {
      EXPECT_EQ((*column)(row).Top, static_cast<float>(32 + 21 * row)) << (*column)(row).Name;
      EXPECT_TRUE(IsShown((*column)(row)));
    }
  }
  form.cmdHideScores.Click();
  EXPECT_FALSE(form.picHighScores.Visible);
  WriteFile(story.ThemeFile("HighScores.ini"), HighScoreFile({"6"}));
  form.cmdShowHighscores.Click();
  EXPECT_EQ(story.Rows()[0], "P0|01/02/03|6");
  for (const Control* control : form.Controls) {
    const auto* label = dynamic_cast<const Label*>(control);
    if (label == nullptr || !IsShown(*label)) continue;
    const Size text = story.desktop.MeasureText(label->Font, label->Caption, 0);
    EXPECT_EQ((Size{ToPixels(label->Width), ToPixels(label->Height)}), text) << label->Name << " " << label->Caption;
  }
  story.Start().Frames(2).Run();
  EXPECT_TRUE(form.picHighScores.Visible) << "also when a game starts";
}

TEST(ThePanel, PaintsOfAnEntryWhatItsColumnHasRoomFor) {
  const std::pair<std::string, std::string> names[] = {
      {"13 letters ok", "13 letters ok"},
      {"14 letters are", "14 letters a\u2026"},
      {"one\ntwo", "one\u2026"},  // a second line would lie on the next entry
      {std::string(254, 'x'), std::string(12, 'x') + "\u2026"},
      {std::string(60000, 'x'), std::string(12, 'x') + "\u2026"},
  };
  Story story;
  std::string file;
  for (const auto& [name, painted] : names) file += "\"" + name + "\",\"Monday, 3 March\",9.5\n";
  WriteFile(story.ThemeFile("HighScores.ini"), file);
  for (const bool shownBefore : {false, true}) {
    story.form.cmdShowHighscores.Click();
    for (int row = 0; row < static_cast<int>(std::size(names)); ++row) {
      const auto& [name, painted] = names[row];
      EXPECT_EQ(story.form.lblHighName(row).Caption, name) << shownBefore;
      EXPECT_EQ(story.form.lblHighName(row).PaintedText(), painted) << shownBefore;
      EXPECT_EQ(story.form.lblHighDate(row).PaintedText(), "Monday, 3 \u2026");
    }
    EXPECT_EQ(story.form.lblHighName(3).Width, 254 * 8);
    EXPECT_LE(story.form.lblHighName(4).Width, 1024 * 8) << "measuring all of it would take long";
  }
}

}  // namespace
}  // namespace sorvex
