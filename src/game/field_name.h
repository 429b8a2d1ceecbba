// SPDX-License-Identifier: MIT
// The play field's name for assistive technology.
#pragma once

#include "forms/main_window.h"
#include "game/mod_variables.h"

namespace sorvex {

/// Gives the play field its accessible name: "Play field, theme Theme1, 3 items left".
void NameField(frmMain& form, const modVariables& state);

}  // namespace sorvex
