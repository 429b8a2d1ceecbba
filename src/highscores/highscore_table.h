// SPDX-License-Identifier: MIT
// A theme's ten best times. The table has no store but the captions of the highscore panel's labels.
#pragma once

#include <string>

#include "platform/desktop.h"
#include "ui/main_window.h"

namespace sorvex {

inline constexpr int kHighScoreRows = 10;  ///< row 0 is the fastest

/// The three texts of a row.
struct HighScore {
  std::string name;
  std::string date;
  std::string time;  ///< seconds
};

HighScore HighScoreAt(const frmMain& form, int row);
void SetHighScore(Desktop& desktop, frmMain& form, int row, const HighScore& score);

/// Sets all rows to the defaults, then fills them from the theme's file; a missing file is reported in a box. A row
/// without a time, also one that the file ends before, is a default row.
void LoadHighScores(Desktop& desktop, frmMain& form, const std::string& themeName);

/// Writes the ten rows to the theme's file. Throws what Desktop::WriteWholeFile throws.
void SaveHighScores(Desktop& desktop, const frmMain& form, const std::string& themeName);

}  // namespace sorvex
