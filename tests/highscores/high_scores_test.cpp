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

class HighScores : public testing::Test {
 protected:
  Names Loaded() {
    LoadHighScores(story.desktop, story.form, "Theme1");
    return story.Rows();
  }
  Names Loaded(const std::string& text) {
    WriteFile(file, text);
    return Loaded();
  }
  void Record(double time) { RecordHighScore(story.desktop, story.form, "Theme1", time); }

  Story story{{CupTheme(1)}};
  const std::filesystem::path file = story.ThemeFile("HighScores.ini");
};

TEST_F(HighScores, AreReadInOrderWhateverTheLinesAndWrittenInThirty) {
  std::string thirty, rows;
  for (int i = 0; i < 10; ++i) {
    const std::string n = std::to_string(i);
    thirty += "\"P" + n + "\"\r\n\"d" + n + "\"\r\n\"" + n + "\"\r\n";
    rows += "\"P" + n + "\",\"d" + n + "\"," + n + "\n";
  }
  for (const std::string& text : {thirty, rows, thirty + "\"after\"\r\n\"the\"\r\n\"30th\"\r\n"}) {
    EXPECT_EQ(Loaded(text)[9], "P9|d9|9");
    SaveHighScores(story.desktop, story.form, "Theme1", [] { return true; });
    EXPECT_EQ(ReadWholeFile(file), thirty);
  }
}

TEST_F(HighScores, HaveDefaultRowsWhereATimeIsMissing) {
  const std::pair<const char*, Names> cases[] = {
      {"\"A\"\r\n\"d\"\r\n\"\"\r\n\"B\"\r\n\"e\"\r\n\"2\"\r\n", {kDefault, "B|e|2", kDefault}},
      {"A,d,1\r\nB,e", {"A|d|1", kDefault, kDefault}},  // ends early
      {"", {kDefault, kDefault, kDefault}},
      {"\"\",\"\",\"1\"", {"||1", kDefault, kDefault}},
      {"Zo\xEB,d,1", {"Zo\xC3\xAB|d|1", kDefault, kDefault}},
  };
  for (const auto& [text, firstRows] : cases) {
    const Names rows = Loaded(text);
    EXPECT_EQ(Names(rows.begin(), rows.begin() + 3), firstRows) << text;
    EXPECT_EQ(rows[9], kDefault);
  }
}

TEST_F(HighScores, AreReportedMissingAtEveryLoadUntilTheFirstRecordMakesThem) {
  std::filesystem::remove(file);
  EXPECT_EQ(Loaded(), Names(10, kDefault));
  story.form.cmdShowHighscores.Click();
  const Box notFound{"Highscore file not found", "File not found", BoxIcon::Exclamation};
  EXPECT_EQ(story.desktop.Boxes, (std::vector<Box>{notFound, notFound}));
  Record(50);
  story.form.cmdShowHighscores.Click();
  EXPECT_EQ(story.desktop.Boxes.size(), 2U);
  EXPECT_EQ(story.Rows()[0], "|03/14/26|50");
}

TEST_F(HighScores, ANewTimeTakesTheLowestRowWithAGreaterOne) {
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
  story.desktop.TypeName = [] { return "A\tnn\xE2\x80\xA8 pasted"; };
  for (const auto& c : cases) {
    Names expected = Loaded(HighScoreFile(c.times));
    if (c.row >= 0) {
      expected.insert(expected.begin() + c.row, std::string("Ann|03/14/26|") + c.text);
      expected.pop_back();
    }
    story.desktop.Prompts.clear();
    Record(c.time);
    EXPECT_EQ(story.Rows(), expected) << c.what;
    EXPECT_EQ(story.desktop.Prompts.size(), c.row >= 0 ? 1U : 0U) << c.what;
    EXPECT_EQ(Loaded(), expected) << c.what << ": the file agrees";
  }
}

// What another copy of the program, or its player, does while the name is typed.
TEST_F(HighScores, ANewTimeTakesItsPlaceInTheTableThatIsThereWhenTheNameIsKnown) {
  const std::string mine = "Ann|03/14/26|20";
  const std::pair<std::optional<Names>, Names> cases[] = {
      // the times meanwhile, none: no file; the first rows then
      {Names{"10", "30"}, {"P0|01/02/03|10", mine, "P1|01/02/03|30"}},
      {Names{"5", "10", "30"}, {"P0|01/02/03|5", "P1|01/02/03|10", mine}},
      {Names(10, "7"), {"P0|01/02/03|7", "P1|01/02/03|7", "P2|01/02/03|7"}},
      {std::nullopt, {"P0|01/02/03|10", mine, "P1|01/02/03|30"}},
  };
  for (const auto& [meanwhile, first] : cases) {
    Loaded(HighScoreFile({"10", "30"}));
    story.desktop.TypeName = [&, times = meanwhile] {
      std::filesystem::remove(file);
      if (times) WriteFile(file, HighScoreFile(*times));
      return "Ann";
    };
    Record(20);
    const Names rows = story.Rows();
    EXPECT_EQ(Names(rows.begin(), rows.begin() + 3), first);
    EXPECT_EQ(Loaded(), rows);
  }
  EXPECT_TRUE(story.desktop.Boxes.empty());
}

TEST_F(HighScores, NeverOverwriteATableThatCannotBeReadNorMakeOne) {
  const std::string tooLong((64 << 10) + 1, 'x');
  for (const auto& [table, name] : {std::pair{tooLong, std::string("Ann")}, {HighScoreFile({"10"}), tooLong}}) {
    WriteFile(file, table);
    story.desktop.TypeName = [&name = name] { return name; };
    EXPECT_THROW(Record(5), RuntimeError);
    EXPECT_EQ(ReadWholeFile(file), table);
    EXPECT_EQ(story.Rows()[0], name + "|03/14/26|5") << "the panel keeps it";
  }
}

TEST_F(HighScores, AreSavedBehindALinkOnlyOverAnotherTable) {
  const std::filesystem::path target = story.folder.Path() / "elsewhere";
  std::error_code noLinks;
  std::filesystem::remove(file);
  std::filesystem::create_symlink(target, file, noLinks);
  if (noLinks) GTEST_SKIP() << "this system lets the user make no links";
  for (const char* text : {"alias rm=\"rm -i\"\n", "\"A\"\r\n\"d\"\r\n9\r\n", "[\"json\"]"}) {
    WriteFile(target, text);
    EXPECT_THROW(Record(5), RuntimeError);
    EXPECT_EQ(ReadWholeFile(target), text);
  }
  for (const std::string& text : {std::string(), HighScoreFile({"10"})}) {
    WriteFile(target, text);
    Record(5);
    EXPECT_EQ(Loaded()[0], "|03/14/26|5");
  }
}

TEST_F(HighScores, AreRereadAtEveryShowingInLabelsAsLargeAsTheirTexts) {
  frmMain& form = story.form;
  for (const char* time : {"5", "6"}) {
    WriteFile(file, HighScoreFile({time}));
    EXPECT_FALSE(form.picHighScores.Visible);
    form.cmdShowHighscores.Click();
    EXPECT_EQ(story.Rows()[0], std::string("P0|01/02/03|") + time);
    for (const Control* control : form.Controls) {
      const auto* label = dynamic_cast<const Label*>(control);
      if (label == nullptr || !IsShown(*label)) continue;
      const Size text = story.desktop.MeasureText(label->Font, label->Caption, 0);
      EXPECT_EQ((Size{ToPixels(label->Width), ToPixels(label->Height)}), text) << label->Name << " " << label->Caption;
    }
    form.cmdHideScores.Click();
  }
  for (int row = 0; row < 10; ++row)
    for (auto* column : {&form.lblHighNum, &form.lblHighName, &form.lblHighDate, &form.lblHighTime})
      EXPECT_EQ((*column)(row).Top, static_cast<float>(32 + 21 * row)) << (*column)(row).Name;
}

TEST_F(HighScores, ArePaintedAsFarAsTheirColumnHasRoom) {
  const std::pair<std::string, std::string> names[] = {
      {"13 letters ok", "13 letters ok"},
      {"14 letters are", "14 letters a\u2026"},
      {"one\ntwo", "one\u2026"},  // a second line would lie on the next entry
      {std::string(60000, 'x'), std::string(12, 'x') + "\u2026"},
  };
  std::string text;
  for (const auto& [name, painted] : names) text += "\"" + name + "\",\"Monday, 3 March\",9.5\n";
  WriteFile(file, text);
  for (const bool shownBefore : {false, true}) {
    story.form.cmdShowHighscores.Click();
    for (int row = 0; const auto& [name, painted] : names) {
      EXPECT_EQ(story.form.lblHighName(row).Caption, name) << shownBefore;
      EXPECT_EQ(story.form.lblHighName(row).PaintedText(), painted) << shownBefore;
      EXPECT_EQ(story.form.lblHighDate(row++).PaintedText(), "Monday, 3 \u2026");
    }
    EXPECT_LE(story.form.lblHighName(3).Width, 1024 * 8) << "measuring all of it would take long";
  }
}

}  // namespace
}  // namespace sorvex
