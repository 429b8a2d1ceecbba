// SPDX-License-Identifier: MIT
// What the information image answers.
#pragma once

#include "game/game.h"

namespace sorvex {

/// A released left button shows the about box, a right one the theme's details, any other nothing.
void imgAbout_MouseUp(Game& game, Integer button);

}  // namespace sorvex
