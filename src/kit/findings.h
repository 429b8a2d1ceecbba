// SPDX-License-Identifier: MIT
// What a check finds: one thing that is wrong with a theme, where, and what would be right.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kit/place.h"

namespace sorvex {

/// An error keeps the theme, or an item of it, from being played; a warning does not.
enum class Severity { Error, Warning };

struct Finding {
  Severity severity = Severity::Error;
  std::string_view code;  ///< stable; docs/themes.md lists them all
  std::string file;       ///< of the theme, as it must be named
  int line = 0;           ///< from 1; 0: the whole file
  std::optional<Place> pixel;
  std::string message;
};

using Findings = std::vector<Finding>;

}  // namespace sorvex
