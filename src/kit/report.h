// SPDX-License-Identifier: MIT
// Findings as text: lines in the form of compilers for people, JSON for programs.
#pragma once

#include <string>
#include <vector>

#include "kit/check.h"

namespace sorvex {

/// One line a finding: "Theme1/Theme.ini:7: error: ... [code]".
std::string AsLines(const CheckedTheme& theme, bool colored);
/// "Theme1: 2 errors, 1 warning; tightness 2 at item 3, once out 4 at item 0": the items with the least room.
std::string Summary(const CheckedTheme& theme);
/// An array with one object a finding: theme, file, severity, code, message, and line or x and y where there are any.
std::string AsJson(const std::vector<CheckedTheme>& themes);

}  // namespace sorvex
