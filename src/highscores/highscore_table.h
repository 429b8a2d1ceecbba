// SPDX-License-Identifier: MIT
// A theme's ten best times. They are stored in the captions of the highscore panel's labels and nowhere else in memory.
#pragma once

#include <functional>
#include <string>

#include "forms/main_window.h"
#include "platform/desktop.h"

namespace sorvex {

inline constexpr char kHighScoresFile[] = "HighScores.ini";
inline constexpr int kHighScoreRows = 10;  ///< row 0 is the fastest

/// A row's texts.
struct HighScore {
  std::string name;
  std::string date;
  std::string time;  ///< seconds
};

/// `row` is 0 to kHighScoreRows - 1; throw NoSuchElement (340) if the row does not exist.
HighScore HighScoreAt(const frmMain& form, int row);
void SetHighScore(Desktop& desktop, frmMain& form, int row, const HighScore& score);

/// The text of a file with the default rows.
std::string DefaultHighScoreText();

/// Resets all rows to the defaults, then fills them from the theme's file; a missing file is reported in a box. Rows
/// without a time, or missing from the file, keep the default.
void LoadHighScores(Desktop& desktop, frmMain& form, const std::string& themeName);

/// Under a lock that excludes other copies of the program: rereads the theme's file, calls `change`, which modifies the
/// rows, and writes them unless it returned false. If the file is missing, the rows are kept. A file that cannot be
/// read is not overwritten, nor is one behind a symbolic link that is no saved table; a table that could not be read
/// back is not written. Throws what Desktop::UpdateFile throws.
void SaveHighScores(Desktop& desktop, frmMain& form, const std::string& themeName, const std::function<bool()>& change);

}  // namespace sorvex
