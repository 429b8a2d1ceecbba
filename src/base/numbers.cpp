// SPDX-License-Identifier: MIT
// Rounding, range checks and the plain decimal text form of numbers, whatever the locale.
#include "base/numbers.h"

#include <array>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "base/runtime_error.h"

namespace sorvex {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

template <class Whole>
Whole Checked(double value) {
  const double rounded = RoundHalfEven(value);
  if (!(rounded >= std::numeric_limits<Whole>::min() && rounded <= std::numeric_limits<Whole>::max())) throw Overflow();
  return static_cast<Whole>(rounded);
}

// The longest number at the start of `text` (sign, digits, a period, digits); empty if there is no digit.
std::string_view NumberPrefix(std::string_view text) {
  std::size_t at = 0;
  if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
  std::size_t digits = 0;
  while (at < text.size() && IsDigit(text[at])) ++at, ++digits;
  if (at < text.size() && text[at] == '.') {
    ++at;
    while (at < text.size() && IsDigit(text[at])) ++at, ++digits;
  }
  return digits == 0 ? std::string_view() : text.substr(0, at);
}

std::string_view WithoutLeadingBlanks(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  return text;
}

}  // namespace

// std::nearbyint rounds half to even in the default rounding mode, which nothing in the program changes.
double RoundHalfEven(double value) { return std::nearbyint(value); }

Integer ToInteger(int value) {
  if (value < std::numeric_limits<Integer>::min() || value > std::numeric_limits<Integer>::max()) throw Overflow();
  return static_cast<Integer>(value);
}

Integer ToInteger(double value) { return Checked<Integer>(value); }
Long ToLong(double value) { return Checked<Long>(value); }

double LeadingNumber(std::string_view text) {
  const std::string_view number = NumberPrefix(WithoutLeadingBlanks(text));
  // Not std::from_chars, which not every standard library has for floating-point numbers.
  std::string digits(number);
  if (const std::size_t at = digits.find('.'); at != std::string::npos)
    digits.replace(at, 1, std::localeconv()->decimal_point);
  return std::strtod(digits.c_str(), nullptr);
}

bool IsNumber(std::string_view text) {
  text = WithoutLeadingBlanks(text);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return !text.empty() && NumberPrefix(text).size() == text.size();
}

std::string NumberText(double value) {
  // Not std::to_chars, whose floating-point tables would add 170 KB to the program. snprintf uses the decimal separator
  // of the current locale, which a toolkit may have set to the user's.
  std::array<char, 32> digits{};
  std::snprintf(digits.data(), digits.size(), "%.15g", value);
  const std::string_view text = digits.data();
  const std::string_view separator = std::localeconv()->decimal_point;
  const std::size_t at = text.find(separator);
  if (at == std::string_view::npos) return std::string(text);
  return std::string(text.substr(0, at)) + '.' + std::string(text.substr(at + separator.size()));
}

}  // namespace sorvex
