// SPDX-License-Identifier: MIT
// Fields across commas and line ends.
#include "highscores/field_reader.h"

#include <gtest/gtest.h>

#include <vector>

namespace sorvex {
namespace {

TEST(Fields, EndAtCommasAndLineEnds) {
  const struct {
    const char* text;
    std::vector<std::string> fields;
  } cases[] = {
      {"", {}},
      {"a", {"a"}},
      {"a,b\r\nc\r\n", {"a", "b", "c"}},
      {"a\nb\rc", {"a", "b", "c"}},
      {"  \t a b  ,c", {"a b", "c"}},
      {"a\r\n\r\nb", {"a", "", "b"}},
      {"\r\n7", {"", "7"}},
      {"a,\r\nb", {"a", "", "b"}},
      {"a,,b", {"a", "", "b"}},
      {"\"a, b\"\r\nc", {"a, b", "c"}},
      {"\"a\" dropped, b", {"a", "b"}},
      {"\"a\"\"b\"\r\nc", {"a", "c"}},
      {"\"one\r\ntwo\",c", {"one\r\ntwo", "c"}},
      {"\"\"\r\n\"\"\r\n", {"", ""}},
      {"\" a \"", {" a "}},
      {"a\"b\",c", {"a\"b\"", "c"}},
      {"\"never closed,\r\nx", {"never closed,\r\nx"}},
      {"a,  \"b\"  \r\nc", {"a", "b", "c"}},
  };
  for (const auto& c : cases) {
    FieldReader reader(c.text);
    std::vector<std::string> fields;
    while (const auto field = reader.Next()) fields.push_back(*field);
    EXPECT_EQ(fields, c.fields) << c.text;
  }
}

TEST(Fields, KnowTheirLine) {
  FieldReader reader("a,b\r\n\"c\r\nd\"\r\ne\nf");
  std::vector<int> lines;
  while (reader.Next()) lines.push_back(reader.Line());
  EXPECT_EQ(lines, (std::vector<int>{1, 1, 2, 4, 5}));
}

}  // namespace
}  // namespace sorvex
