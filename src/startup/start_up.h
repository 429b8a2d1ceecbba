// SPDX-License-Identifier: MIT
// What runs before the main window loads.
#pragma once

#include "game/game.h"

namespace sorvex {

/// Records the program's folder in the registry, whatever comes of it, and makes "Theme1" the current theme.
void Form_Initialize(Game& game);

}  // namespace sorvex
