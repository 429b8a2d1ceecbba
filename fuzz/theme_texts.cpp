// SPDX-License-Identifier: MIT
// The text files of a theme. The first byte says which.
#include <string>

#include "base/text.h"
#include "fuzzing.h"
#include "themes/theme_files.h"

namespace sorvex {
namespace {

// A reading that stops at the first fault does so exactly when one that goes on has any.
template <class Parse>
void ParseBothWays(Parse parse) {
  int faults = 0;
  parse([&](const Fault& fault) {
    Require(!fault.code.empty() && !fault.reason.empty() && IsValidUtf8(fault.reason));
    ++faults;
  });
  try {
    parse(ThrowThemeError);
    Require(faults == 0);
  } catch (const ThemeError&) {
    Require(faults > 0);
  }
}

}  // namespace
}  // namespace sorvex

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace sorvex;
  Pieces pieces(data, size);
  const unsigned which = pieces.Byte();
  const std::string text = DecodeText(pieces.Bytes(size));
  LooksLikeUtf16(text);
  switch (which % 3) {
    case 0: ParseBothWays([&](const FaultSink& report) { ParseItems(text, report); }); break;
    case 1: ParseBothWays([&](const FaultSink& report) { ParseTarget(text, report); }); break;
    default: ParseDetails(text);
  }
  return 0;
}
