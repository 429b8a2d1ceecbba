// SPDX-License-Identifier: MIT
// The theme chooser: which folder, and what follows when it closes.
#pragma once

#include "forms/choose_theme_window.h"
#include "game/game.h"

namespace sorvex {

/// Lets the player choose a theme, then loads the current one, also after Cancel, and shows it on the play field, where
/// it waits for Start. A running game ends.
void Image2_Click(Game& game);

/// Fills the list with every folder beside the executable, in the file system's order.
void Form_Load(Desktop& desktop, frmChooseTheme& form);
/// Takes the selected folder over as the current theme and closes; without a selection it does nothing.
void OKButton_Click(modVariables& state, frmChooseTheme& form);
void CancelButton_Click(frmChooseTheme& form);

}  // namespace sorvex
