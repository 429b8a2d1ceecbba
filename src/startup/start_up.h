// SPDX-License-Identifier: MIT
// The main window's initialize handler, which runs before its load handler.
#pragma once

#include "game/game.h"

namespace sorvex {

/// Records the program's folder in the registry, ignoring failures, and makes "Theme1" the current theme.
void Form_Initialize(Game& game);

}  // namespace sorvex
