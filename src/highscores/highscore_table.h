// SPDX-License-Identifier: MIT
// A theme's ten best times. The table has no store but the captions of the highscore panel's labels.
#pragma once

#include <functional>
#include <string>

#include "forms/main_window.h"
#include "platform/desktop.h"

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

/// Takes in what another copy of the program has written to the theme's file meanwhile, lets `change` change the rows
/// and writes them, no other copy being at it. Nothing is written when `change` returns false; rows stay as they are
/// when the file is gone. A file that cannot be read back is not overwritten, nor is one written that could not be.
/// Throws what Desktop::UpdateFile throws.
void SaveHighScores(Desktop& desktop, frmMain& form, const std::string& themeName, const std::function<bool()>& change);

}  // namespace sorvex
