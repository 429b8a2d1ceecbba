// SPDX-License-Identifier: MIT
// The objects that the game's procedures work on, bundled into one parameter.
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
