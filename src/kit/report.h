// SPDX-License-Identifier: MIT
// Findings as text: lines in the form of compilers for people, JSON for programs.
#pragma once

#include <string>
#include <vector>

#include "kit/findings.h"

namespace sorvex {

/// A theme's folder, as it was named, and what was found in it.
struct CheckedTheme {
  std::string folder;
  Findings findings;
};

/// One line a finding: "Theme1/Theme.ini:7: error: ... [code]".
std::string AsLines(const CheckedTheme& theme, bool colored);
/// "Theme1: 2 errors, 1 warning".
std::string Summary(const CheckedTheme& theme);
/// An array with one object a finding: theme, file, severity, code, message, and line or x and y where there are any.
std::string AsJson(const std::vector<CheckedTheme>& themes);

}  // namespace sorvex
