// SPDX-License-Identifier: MIT
// The main window's commands: loading and laying out, Start, the hidden clock, closing.
#pragma once

#include "game/game.h"

namespace sorvex {

/// Builds the highscore rows, loads the current theme and lays the window out around the play field. Returns whether a
/// theme was loaded.
bool Form_Load(Game& game);

/// Lays the window out around the play field.
void LayOut(frmMain& form, TwipRatio twipsPerPixel);

/// Loads the theme afresh and plays one game. When no theme can be loaded any more, plays the one on the field.
/// During a game it ends that game, which reports nothing, and returns; the call that played it then starts the new
/// one, so that games never nest.
void Command1_Click(Game& game);

/// The information image: a released left button shows the about box, a right one the theme's details, any other
/// nothing.
void imgAbout_MouseUp(Game& game, Integer button);

/// Shows or hides the elapsed time.
void Image1_Click(Game& game);

/// Ends the program at once; always throws ProgramEnded.
[[noreturn]] void Form_Unload(frmMain& form);

}  // namespace sorvex
