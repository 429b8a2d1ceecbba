// SPDX-License-Identifier: MIT
// The theme chooser's handlers, and loading the chosen theme.
#pragma once

#include "forms/choose_theme_window.h"
#include "game/game.h"

namespace sorvex {

/// Shows the chooser, then loads the current theme, even after Cancel, and shows it on the play field. Ends a running
/// game.
void Image2_Click(Game& game);

/// Fills the list with the folders beside the executable, in the file system's order.
void Form_Load(Desktop& desktop, frmChooseTheme& form);
/// Makes the selected folder the current theme and closes the chooser; does nothing without a selection.
void OKButton_Click(modVariables& state, frmChooseTheme& form);
void CancelButton_Click(frmChooseTheme& form);

}  // namespace sorvex
