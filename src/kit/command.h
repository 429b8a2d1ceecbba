// SPDX-License-Identifier: MIT
// The command line of sorvex-theme.
#pragma once

#include <string>
#include <vector>

namespace sorvex {

/// Does what the arguments (UTF-8, without the program's name) say; returns the exit status: 0 nothing found, 1
/// findings, 2 wrong usage.
int RunThemeCommand(std::vector<std::string> arguments);

}  // namespace sorvex
