// SPDX-License-Identifier: MIT
// The reader of comma-separated fields: fields are pieces of the text, in order, each on its line.
#include <algorithm>
#include <string>

#include "base/field_reader.h"
#include "fuzzing.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace sorvex;
  const std::string_view text = AsText(data, size);
  FieldReader reader(text);
  std::size_t at = 0;
  int line = 1;
  while (const std::optional<std::string> field = reader.Next()) {
    at = text.find(*field, at);
    Require(at != std::string_view::npos);
    at += field->size();
    Require(reader.Line() >= line);
    line = reader.Line();
  }
  Require(line <= 1 + std::ranges::count_if(text, [](char c) { return c == '\r' || c == '\n'; }));
  return 0;
}
