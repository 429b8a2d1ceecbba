// SPDX-License-Identifier: MIT
// The theme's description and date.
#pragma once

#include "game/game.h"

namespace sorvex {

/// Shows the description and date of the theme on the field in a box.
void ShowThemeDetails(Game& game);

}  // namespace sorvex
