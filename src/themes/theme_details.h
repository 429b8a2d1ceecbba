// SPDX-License-Identifier: MIT
// The theme details box.
#pragma once

#include "game/game.h"

namespace sorvex {

/// Shows the current theme's description and date in a box.
void ShowThemeDetails(Game& game);

}  // namespace sorvex
