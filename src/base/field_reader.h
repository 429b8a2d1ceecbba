// SPDX-License-Identifier: MIT
// The fields of a theme's small text files, as BASIC's Input # statement takes them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace sorvex {

/// Reads fields in order, across commas and line ends (CR LF, LF or CR alone):
/// - blanks and tabs before a field are skipped;
/// - a field that begins with a double quote is the text up to the next one, or to the end of the text; what follows
///   up to the next comma or line end is dropped;
/// - any other field is the text up to the next comma or line end, without trailing blanks;
/// - a blank line, or a comma before a line end, is one empty field.
class FieldReader {
 public:
  /// `text` must outlive the reader.
  explicit FieldReader(std::string_view text) : rest_(text) {}

  /// The next field, nullopt at the end of the text.
  std::optional<std::string> Next();
  /// The line, from 1, on which the field that was read last begins.
  int Line() const { return fieldLine_; }

 private:
  void Take(std::size_t count);
  void SkipSeparator();

  std::string_view rest_;
  int line_ = 1;
  int fieldLine_ = 1;
};

}  // namespace sorvex
