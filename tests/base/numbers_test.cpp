// SPDX-License-Identifier: MIT
// Rounding, ranges and the text form of numbers.
#include "base/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "base/runtime_error.h"

namespace sorvex {
namespace {

TEST(Numbers, HalvesRoundToTheEvenNeighbour) {
  const struct {
    double value;
    int rounded;
  } cases[] = {{2.5, 2},   {3.5, 4},  {12.5, 12}, {13.5, 14},  {-0.5, 0},        {-1.5, -2},
               {-2.5, -2}, {2.49, 2}, {2.51, 3},  {-2.51, -3}, {32767.4, 32767}, {-32768.5, -32768}};
  for (const auto& c : cases) EXPECT_EQ(ToInteger(c.value), c.rounded) << c.value;
}

TEST(Numbers, LeavingTheRangeIsAnOverflow) {
  for (const double value : {32767.5, 32768.0, -32768.51, 1e300, std::nan(""), std::numeric_limits<double>::infinity()})
    EXPECT_THROW(ToInteger(value), RuntimeError) << value;
  EXPECT_EQ(ToLong(2147483647.0), 2147483647);
  EXPECT_THROW(ToLong(2147483647.5), RuntimeError);
  EXPECT_THROW(ToLong(-2147483649.0), RuntimeError);
  try {
    ToInteger(40000);
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), 6);
    EXPECT_EQ(error.Description(), "Overflow");
  }
}

TEST(Numbers, ANumberIsSignDigitsPeriodDigitsAndNothingElse) {
  for (const char* text : {"7", " 7 ", "\t7", "-7", "+7", "12.5", ".5", "5.", "-.5", "007"})
    EXPECT_TRUE(IsNumber(text)) << text;
  for (const char* text :
       {"", " ", ".", "-", "+.", "1e3", "1,5", "7x", "x7", "- 7", "1 2", "&H10", "1.2.3", "0x1", "inf", "nan"})
    EXPECT_FALSE(IsNumber(text)) << text;
}

TEST(Numbers, ReadingStopsAtTheFirstOtherCharacter) {
  const struct {
    const char* text;
    double value;
  } cases[] = {{"12.5", 12.5}, {"  12.5abc", 12.5}, {"-3", -3}, {"+3", 3},      {"12,5", 12}, {"1e3", 1}, {".75", .75},
               {"", 0},        {"abc", 0},          {"-", 0},   {"1.2.3", 1.2}, {"5.", 5},    {". 5", 0}};
  for (const auto& c : cases) EXPECT_EQ(LeadingNumber(c.text), c.value) << c.text;
  EXPECT_GT(LeadingNumber(std::string(400, '9')), 1e300);
}

TEST(Numbers, TextHasNoTrailingZerosAndAPeriod) {
  const struct {
    double value;
    const char* text;
  } cases[] = {{0, "0"},       {12, "12"},   {12.3, "12.3"},       {0.75, "0.75"}, {0.01, "0.01"},
               {1.01, "1.01"}, {100, "100"}, {86400.5, "86400.5"}, {-1.5, "-1.5"}};
  for (const auto& c : cases) EXPECT_EQ(NumberText(c.value), c.text);
}

}  // namespace
}  // namespace sorvex
