// SPDX-License-Identifier: MIT
// What the game's procedures work on, in one parameter.
#pragma once

#include "forms/main_window.h"
#include "game/frame_memory.h"
#include "game/mod_variables.h"
#include "platform/desktop.h"

namespace sorvex {

struct Game {
  Desktop& desktop;
  frmMain& form;
  modVariables& state;
  FrameMemory frame{};
};

}  // namespace sorvex
