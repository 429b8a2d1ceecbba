// SPDX-License-Identifier: MIT
// The number types of the game's rules, with their rounding and range checks.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace sorvex {

using Integer = std::int16_t;
using Long = std::int32_t;

/// The nearest whole number, halves to the even neighbor (2.5 gives 2, 3.5 gives 4).
double RoundHalfEven(double value);

/// Rounds half to even; throws Overflow (6) if the result does not fit or `value` is NaN.
Integer ToInteger(double value);
Integer ToInteger(int value);
Long ToLong(double value);

/// The number at the start of `text`: blanks, a sign, digits, a period, digits. Parsing stops at the first other
/// character; 0 if `text` does not begin with a number.
double LeadingNumber(std::string_view text);

/// True if `text`, without surrounding blanks and tabs, is an optional sign and decimal digits with an optional period
/// before, between or after them; at least one digit is required.
bool IsNumber(std::string_view text);

/// `value` in decimal notation with a period in every locale, without trailing zeros, with at most 15 significant
/// digits: 12.5, 12, 0.75.
std::string NumberText(double value);

}  // namespace sorvex
