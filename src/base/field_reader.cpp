// SPDX-License-Identifier: MIT
// Splitting text into fields.
#include "base/field_reader.h"

#include <algorithm>

namespace sorvex {
namespace {

constexpr std::string_view kSeparators = ",\r\n";

}  // namespace

std::optional<std::string> FieldReader::Next() {
  Take(std::min(rest_.find_first_not_of(" \t"), rest_.size()));
  if (rest_.empty()) return std::nullopt;
  fieldLine_ = line_;
  std::string field;
  if (rest_.front() == '"') {
    Take(1);
    const std::size_t end = std::min(rest_.find('"'), rest_.size());
    field = rest_.substr(0, end);
    Take(end);
    Take(std::min(rest_.find_first_of(kSeparators), rest_.size()));
  } else {
    const std::size_t end = std::min(rest_.find_first_of(kSeparators), rest_.size());
    field = rest_.substr(0, end);
    field.erase(field.find_last_not_of(' ') + 1);
    Take(end);
  }
  SkipSeparator();
  return field;
}

void FieldReader::Take(std::size_t count) {
  const std::string_view taken = rest_.substr(0, count);
  for (std::size_t i = 0; i < taken.size(); ++i)
    if (taken[i] == '\n' || (taken[i] == '\r' && (i + 1 == rest_.size() || rest_[i + 1] != '\n'))) ++line_;
  rest_.remove_prefix(count);
}

void FieldReader::SkipSeparator() {
  if (rest_.empty()) return;
  Take(rest_.starts_with("\r\n") ? 2 : 1);
}

}  // namespace sorvex
