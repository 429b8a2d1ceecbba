// SPDX-License-Identifier: MIT
// Loading a theme onto the main window.
#pragma once

#include <string>

#include "game/game.h"
#include "themes/theme_files.h"

namespace sorvex {

/// Loads the theme folder `name` beside the executable: item table, pictures, play field size, caption, details and
/// best times. Ends a running game. If the theme is incomplete or invalid, reports it in a box and loads "Theme1"
/// instead, which becomes the current theme. Returns whether a theme was loaded; if not, nothing was changed.
bool LoadTheme(Game& game, const std::string& name);

/// Copies a theme into the window and the state: item table, pictures, play field size, details.
void PutOnForm(frmMain& form, modVariables& state, const Theme& theme);

/// Puts the items of the loaded theme back into play at their start positions. Returns false and changes nothing if the
/// game is over or no theme is loaded.
bool ReturnItemsToStart(Game& game);

}  // namespace sorvex
