// SPDX-License-Identifier: MIT
// A finished game's way into the table.
#pragma once

#include <string>

#include "forms/main_window.h"
#include "platform/desktop.h"

namespace sorvex {

/// If `time` (seconds) beats an entry of the theme's table, asks for a name, puts the entry into its place and saves
/// the table. Throws what Desktop::UpdateFile throws; the entry then stays in the panel's rows.
void RecordHighScore(Desktop& desktop, frmMain& form, const std::string& themeName, double time);

}  // namespace sorvex
