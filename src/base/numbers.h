// SPDX-License-Identifier: MIT
// The number types of the game's rules and the one place where values are rounded and range-checked.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace sorvex {

using Integer = std::int16_t;
using Long = std::int32_t;

/// Nearest whole number, halves to the even neighbour (2.5 gives 2, 3.5 gives 4).
double RoundHalfEven(double value);

/// Rounds half to even; throws Overflow (6) when the result does not fit, or when `value` is not a number.
Integer ToInteger(double value);
Integer ToInteger(int value);
Long ToLong(double value);

/// A number that opens `text`: blanks, a sign, digits, a period, digits. Reading stops at the first other
/// character; text that does not begin with a number is 0.
double LeadingNumber(std::string_view text);

/// True when `text`, less the blanks and tabs around it, is a sign, digits, a period and digits (sign, period and
/// either group of digits may be missing, but not every digit) and nothing else.
bool IsNumber(std::string_view text);

/// Plain decimal text with a period, without trailing zeros, at most 15 significant digits: 12.5, 12, 0.75.
std::string NumberText(double value);

}  // namespace sorvex
