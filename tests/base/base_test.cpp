// SPDX-License-Identifier: MIT
// Numbers, and text in two encodings.
#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdlib>

#include "base/numbers.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "support/temp_folder.h"

namespace sorvex {
namespace {

using namespace std::string_literals;

TEST(Numbers, RoundHalvesToTheEvenNeighborAndOverflowBeyondTheRange) {
  const std::pair<double, int> cases[] = {{2.5, 2},  {3.5, 4},  {-0.5, 0},   {-1.5, -2},       {-2.5, -2},
                                          {2.49, 2}, {2.51, 3}, {-2.51, -3}, {32767.4, 32767}, {-32768.5, -32768}};
  for (const auto& [value, rounded] : cases) EXPECT_EQ(ToInteger(value), rounded) << value;
  for (const double value : {32767.5, -32768.51, 1e300, std::nan("")}) EXPECT_THROW(ToInteger(value), RuntimeError);
  EXPECT_EQ(ToLong(2147483647.0), 2147483647);
  for (const double value : {2147483647.5, -2147483649.0}) EXPECT_THROW(ToLong(value), RuntimeError);
}

TEST(Numbers, AreSignDigitsPeriodDigitsAndNothingElse) {
  for (const char* text : {"7", " 7 ", "\t7", "-7", "+7", "12.5", ".5", "5.", "-.5", "007"})
    EXPECT_TRUE(IsNumber(text)) << text;
  for (const char* text : {"", " ", ".", "-", "+.", "1e3", "1,5", "7x", "x7", "- 7", "1 2", "1.2.3", "0x1", "nan"})
    EXPECT_FALSE(IsNumber(text)) << text;
  const std::pair<const char*, double> leading[] = {{"  12.5abc", 12.5}, {"-3", -3}, {"12,5", 12}, {"1e3", 1},
                                                    {"+.75", .75},       {"", 0},    {"abc", 0},   {"-", 0},
                                                    {"1.2.3", 1.2},      {". 5", 0}};
  for (const auto& [text, value] : leading) EXPECT_EQ(LeadingNumber(text), value) << text;
  const std::string zeros(400, '0');
  EXPECT_EQ(LeadingNumber("-0." + zeros + "1"), 0) << "too small to be told from 0";
  EXPECT_EQ(LeadingNumber("-1" + zeros + ".5"), -std::numeric_limits<double>::infinity());
}

TEST(Numbers, AreWrittenWithAPeriodAndNoTrailingZeros) {
  const std::pair<double, const char*> cases[] = {{0, "0"},       {12, "12"},   {12.3, "12.3"},       {.75, "0.75"},
                                                  {1.01, "1.01"}, {100, "100"}, {86400.5, "86400.5"}, {-1.5, "-1.5"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(NumberText(value), text);
#ifdef _WIN32
  const char* const locale = std::setlocale(LC_NUMERIC, "German_Germany.1252");
#else
  const TempFolder folder;
  ASSERT_EQ(std::system(("localedef -i de_DE -f UTF-8 " + (folder.Path() / "de_DE.UTF-8").string()).c_str()), 0);
  ::setenv("LOCPATH", folder.Path().c_str(), 1);
  const char* const locale = std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
#endif
  ASSERT_NE(locale, nullptr);
  EXPECT_STREQ(std::localeconv()->decimal_point, ",");
  for (const auto& [value, text] : cases) {
    EXPECT_EQ(NumberText(value), text) << "where the separator is a comma";
    EXPECT_EQ(LeadingNumber(text), value) << "where the separator is a comma";
  }
  std::setlocale(LC_NUMERIC, "C");
}

TEST(Text, IsReadAsWindows1252UnlessItIsUtf8) {
  const std::pair<std::string, std::string> cases[] = {
      {"\xEF\xBB\xBFmarked", "marked"},
      {"Zo\xC3\xAB", "Zo\xC3\xAB"},
      {"Zo\xEB", "Zo\xC3\xAB"},
      {"5 \x80", "5 \xE2\x82\xAC"},
      {"\xF4\x8F\xBF\xBF", "\xF4\x8F\xBF\xBF"},                              // the last character there is
      {"\xF5\x80\x80\x80", "\xC3\xB5\xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xAC"},  // beyond it
      {"\xC0\xAF", "\xC3\x80\xC2\xAF"},                                      // overlong
      {"\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xE2\x82\xAC"},                      // half a surrogate pair
      {"\xE2\x82", "\xC3\xA2\xE2\x80\x9A"},                                  // cut short
  };
  for (const auto& [bytes, text] : cases) EXPECT_EQ(DecodeText(bytes), text);
}

TEST(Text, IsCutBetweenCharactersWithAnEllipsisAndWithoutALookAtTheRest) {
  const std::string endless = "Zo\u00EB" + std::string(1 << 20, 'x');
  const std::tuple<std::string, std::size_t, std::string> cases[] = {
      // text, bytes of room, what is shown
      {"", 0, ""},
      {"Ann", 3, "Ann"},
      {"Zo\u00EB Zo\u00EB", 9, "Zo\u00EB Zo\u00EB"},
      {"Zo\u00EB Zo\u00EB", 8, "Zo\u00EB \u2026"},
      {"Zo\u00EB Zo\u00EB", 6, "Zo\u2026"},  // half of a character is none
      {"\u00EB\u00EB", 1, "\u2026"},
      {endless, 100, "Zo\u00EB" + std::string(93, 'x') + "\u2026"}};
  for (const auto& [whole, bytes, shown] : cases) {
    const auto fits = [room = bytes](std::string_view text) {
      EXPECT_TRUE(IsValidUtf8(text) && text.size() <= 2 * room + 16);
      return text.size() <= room;
    };
    EXPECT_EQ(FittingText(whole, fits), shown) << bytes;
  }
}

}  // namespace
}  // namespace sorvex
