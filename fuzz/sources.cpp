// SPDX-License-Identifier: MIT
// theme.toml, as anybody may have written it: what is wrong is told with its line, and what is whole lies in range.
#include <algorithm>

#include "fuzzing.h"
#include "kit/source.h"
#include "support/temp_folder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace sorvex;
  static const TempFolder folder;
  WriteFile(folder.Path() / kSourceFile, AsText(data, size));
  Findings findings;
  const ThemeSource source = ReadSource(folder.Path().string(), findings);
  const auto lines = 1 + std::ranges::count(AsText(data, size), '\n');
  for (const Finding& finding : findings)
    Require(finding.line >= 0 && finding.line <= lines && !finding.message.empty());
  if (!findings.empty()) return 0;
  Require(!source.items.empty() && source.items.size() <= 21);
  Require(source.threshold >= 1 && source.threshold <= 255);
  for (const SourceItem& item : source.items) Require(!item.picture.path.empty() && !item.container.path.empty());
  return 0;
}
