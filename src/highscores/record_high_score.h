// SPDX-License-Identifier: MIT
// Recording a finished game's time in the table.
#pragma once

#include <string>

#include "forms/main_window.h"
#include "platform/desktop.h"

namespace sorvex {

/// If `time` (seconds) beats an entry of the theme's table, asks for a name, inserts the entry and saves the table.
/// Throws what Desktop::UpdateFile throws; the panel's rows then still contain the entry.
void RecordHighScore(Desktop& desktop, frmMain& form, const std::string& themeName, double time);

}  // namespace sorvex
