// SPDX-License-Identifier: MIT
// Inserting a new time into the table.
#include "highscores/record_high_score.h"

#include "base/numbers.h"
#include "base/text.h"
#include "highscores/highscore_table.h"

namespace sorvex {
namespace {

// The lowest-numbered row whose time is greater than the new one, -1 if there is none. Searches all rows, because a
// table edited by hand need not be sorted.
int PlaceOf(const frmMain& form, const std::string& time) {
  int place = -1;
  for (int row = kHighScoreRows - 1; row >= 0; --row)
    if (LeadingNumber(form.lblHighTime(row).Caption) > LeadingNumber(time)) place = row;
  return place;
}

}  // namespace

void RecordHighScore(Desktop& desktop, frmMain& form, const std::string& themeName, double time) {
  const std::string timeText = NumberText(time);
  if (PlaceOf(form, timeText) < 0) return;
  // Pasted text may contain line breaks and control characters.
  const std::string name = TypedLine(desktop.InputBox("What is your name?", "You got a highscore"));
  SaveHighScores(desktop, form, themeName, [&] {
    // Another copy of the program may have recorded times while the name was typed.
    const int place = PlaceOf(form, timeText);
    if (place < 0) return false;
    for (int row = kHighScoreRows - 1; row > place; --row) SetHighScore(desktop, form, row, HighScoreAt(form, row - 1));
    SetHighScore(desktop, form, place, {name, desktop.ShortDate(), timeText});
    return true;
  });
}

}  // namespace sorvex
