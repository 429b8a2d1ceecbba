// SPDX-License-Identifier: MIT
// Text in unknown codes and numbers in it.
#include <cmath>
#include <string>

#include "base/numbers.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "fuzzing.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace sorvex;
  const std::string text = DecodeText(AsText(data, size));
  Require(IsValidUtf8(text));
  Require(DecodeText(text) == text || text.starts_with("\xEF\xBB\xBF"));
  Require(Utf16Length(text) <= text.size());
  const auto fits = [](std::string_view piece) { return piece.size() <= 12; };
  for (const std::string& cut : {TypedLine(text), std::string(Utf8Prefix(text, size / 2)), FittingText(text, fits)})
    Require(IsValidUtf8(cut));
  Require(fits(FittingText(text, fits)));

  const double number = LeadingNumber(text);
  if (number != 0 && (std::abs(number) > 9e14 || std::abs(number) < 1e-4)) return 0;  // written with an exponent
  Require(std::abs(LeadingNumber(NumberText(number)) - number) <= std::abs(number) * 1e-14);
  try {
    Require(std::abs(ToInteger(number) - number) <= 0.5);
    Require(std::abs(ToLong(number) - number) <= 0.5);
  } catch (const RuntimeError& error) {
    Require(std::abs(number) > 32767);
  }
  return 0;
}
