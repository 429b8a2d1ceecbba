// SPDX-License-Identifier: MIT
// The highscore panel over the play field: creating, showing and hiding it.
#pragma once

#include <string>

#include "forms/main_window.h"
#include "platform/desktop.h"

namespace sorvex {

/// Creates rows 1 to 9 as copies of row 0, unless they exist already.
void BuildHighScoreRows(Desktop& desktop, frmMain& form);

/// Reloads the theme's table and shows the panel.
void cmdShowHighscores_Click(Desktop& desktop, frmMain& form, const std::string& themeName);
void cmdHideScores_Click(frmMain& form);
void picHighScores_Paint(frmMain& form);

}  // namespace sorvex
