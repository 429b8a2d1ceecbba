// SPDX-License-Identifier: MIT
// Finding all that is wrong with a theme, by the game's own reading and its own rules.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "kit/findings.h"
#include "kit/proof.h"
#include "themes/theme_files.h"

namespace sorvex {

/// Is told how many of so many items have been worked out.
using Progress = std::function<void(int done, int all)>;

/// What a check comes to.
struct CheckedTheme {
  std::string folder;  ///< as it was named
  Findings findings;
  std::vector<ItemProof> proofs;  ///< of the items that could be worked out
};

/// All that is wrong with the theme in `folder`.
CheckedTheme CheckTheme(const std::string& folder, const Progress& progress = nullptr);

// Its parts. Each looks at what could be read of the theme and adds what it finds.

/// What a file is by its first bytes: "a PNG picture".
std::optional<std::string> KindOf(std::string_view start);
/// Why the game cannot play these bytes as a sound.
std::optional<std::string> WhyNoSound(std::string_view bytes);
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
/// Each item's way to the target. Comes after all that looks at the theme's files. Returns what was worked out.
std::vector<ItemProof> CheckWays(const Theme& theme, Findings& findings, const Progress& progress);

}  // namespace sorvex
