// SPDX-License-Identifier: MIT
// Text files in two encodings.
#include "base/text.h"

#include <gtest/gtest.h>

#include <string>

namespace sorvex {
namespace {

using namespace std::string_literals;

TEST(Text, BytesThatAreNotUtf8AreReadAsWindows1252) {
  const struct {
    std::string bytes;
    std::string text;
  } cases[] = {
      {"plain", "plain"},
      {"\xEF\xBB\xBFmarked", "marked"},
      {"Zo\xC3\xAB", "Zo\xC3\xAB"},
      {"Zo\xEB", "Zo\xC3\xAB"},
      {"5 \x80", "5 \xE2\x82\xAC"},
      {"\x81", "\xC2\x81"},
      {"\xC0\xAF", "\xC3\x80\xC2\xAF"},                  // overlong
      {"\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xE2\x82\xAC"},  // half a surrogate pair
      {"\xE2\x82", "\xC3\xA2\xE2\x80\x9A"},              // cut short
      {"a\0b"s, "a\0b"s},
  };
  for (const auto& c : cases) EXPECT_EQ(DecodeText(c.bytes), c.text);
}

TEST(Text, ValidUtf8EndsAtTheLastPlane) {
  for (const char* text : {"", "\xF0\x9F\x98\x80", "\xF4\x8F\xBF\xBF", "\xEF\xBF\xBF"}) EXPECT_TRUE(IsValidUtf8(text));
  for (const char* text : {"\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xF0\x80\x80\x80", "\xE0\x80\x80", "\x80", "\xC3("})
    EXPECT_FALSE(IsValidUtf8(text));
}

TEST(Text, CharactersBeyondTheFirstPlaneCountTwiceInUtf16) {
  EXPECT_EQ(Utf16Length("Zo\xC3\xAB"), 3U);
  EXPECT_EQ(Utf16Length("\xE2\x82\xAC"), 1U);
  EXPECT_EQ(Utf16Length("\xF0\x9F\x98\x80"), 2U);
}

}  // namespace
}  // namespace sorvex
