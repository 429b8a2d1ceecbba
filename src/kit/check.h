// SPDX-License-Identifier: MIT
// Finding all that is wrong with a theme, by the game's own reading and its own rules.
#pragma once

#include <string>

#include "kit/findings.h"
#include "themes/theme_files.h"

namespace sorvex {

/// All that is wrong with the theme in `folder`.
Findings CheckTheme(const std::string& folder);

// Its parts. Each looks at what could be read of the theme and adds what it finds.

/// A reason why the game does not load the theme, with what the file's bytes tell about it.
Finding Explained(const std::string& folder, const Fault& fault);
/// The small text files: values that are not read, a table of best times that is missing.
void CheckTexts(const std::string& folder, Findings& findings);
void CheckSounds(const std::string& folder, Findings& findings);
/// Each mask with its picture.
void CheckMasks(const Theme& theme, Findings& findings);
/// Items, containers and the target where they stand and rest: contact, reach, the field's edges, what covers what.
void CheckPlaces(const Theme& theme, Findings& findings);
/// The window that the game makes around the field.
void CheckField(const Theme& theme, Findings& findings);

}  // namespace sorvex
