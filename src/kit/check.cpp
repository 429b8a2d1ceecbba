// SPDX-License-Identifier: MIT
// The order of the checks.
#include "kit/check.h"

namespace sorvex {

CheckedTheme CheckTheme(const std::string& folder, const Progress& progress) {
  CheckedTheme checked{folder, {}, {}};
  Findings& findings = checked.findings;
  const Theme theme = ReadTheme(folder, [&](const Fault& fault) { findings.push_back(Explained(folder, fault)); });
  CheckMasks(theme, findings);
  CheckPlaces(theme, findings);
  CheckField(theme, findings);
  CheckTexts(folder, findings);
  CheckSounds(folder, findings);
  checked.proofs = CheckWays(theme, findings, progress);
  return checked;
}

}  // namespace sorvex
