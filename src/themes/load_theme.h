// SPDX-License-Identifier: MIT
// Putting a theme onto the main window.
#pragma once

#include <string>

#include "game/game.h"
#include "themes/theme_files.h"

namespace sorvex {

/// Loads the theme folder `name` beside the executable: item table, pictures, size of the play field, caption, details,
/// best times; ends a running game. A theme that is incomplete or cannot be used is reported and "Theme1" is loaded in
/// its place and becomes the current theme. Returns whether a theme was loaded; if not, nothing was changed.
bool LoadTheme(Game& game, const std::string& name);

/// Gives the window and the state what is in the theme: item table, pictures, size of the play field, details.
void PutOnForm(frmMain& form, modVariables& state, const Theme& theme);

/// Puts the items of the theme on the field where its files say, in play again. False, and nothing is changed, when the
/// game on the field is over or there is none.
bool ReturnItemsToStart(Game& game);

}  // namespace sorvex
