// SPDX-License-Identifier: MIT
// The order of the checks.
#include "kit/check.h"

namespace sorvex {

Findings CheckTheme(const std::string& folder) {
  Findings findings;
  const Theme theme = ReadTheme(folder, [&](const Fault& fault) { findings.push_back(Explained(folder, fault)); });
  CheckMasks(theme, findings);
  CheckPlaces(theme, findings);
  CheckField(theme, findings);
  CheckTexts(folder, findings);
  CheckSounds(folder, findings);
  return findings;
}

}  // namespace sorvex
