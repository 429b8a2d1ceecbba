// SPDX-License-Identifier: MIT
// The main window's handlers: load, Start, information image, elapsed time, close.
#pragma once

#include "game/game.h"

namespace sorvex {

/// The main window's load handler, also called by each Start: builds the highscore rows, loads the current theme and
/// lays the window out. Returns whether a theme was loaded.
bool Form_Load(Game& game);

/// Sizes the window and positions its controls around the play field.
void LayOut(frmMain& form, TwipRatio twipsPerPixel);

/// The Start button: reloads the theme and runs one game; if no theme can be loaded, runs it with the theme on the
/// field. If a game is running, ends it without a report and returns; the outer call that ran it then starts the new
/// game, so that games never nest.
void Command1_Click(Game& game);

/// The information image: the left button shows the about box, the right one the theme's details, others do nothing.
void imgAbout_MouseUp(Game& game, Integer button);

/// Shows or hides the elapsed time.
void Image1_Click(Game& game);

/// Ends the program at once; always throws ProgramEnded.
[[noreturn]] void Form_Unload(frmMain& form);

}  // namespace sorvex
