// SPDX-License-Identifier: MIT
// Reads the comma-separated fields of a theme's text files by the rules of BASIC's Input # statement.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace sorvex {

/// Reads fields separated by commas and line ends (CR LF, LF or CR):
/// - blanks and tabs before a field are skipped;
/// - a field that begins with a double quote ends at the next one, or at the end of the text; anything from there to
///   the next comma or line end is dropped;
/// - any other field ends at the next comma or line end, without trailing blanks;
/// - a blank line, or a comma before a line end, is one empty field.
class FieldReader {
 public:
  /// `text` must outlive the reader.
  explicit FieldReader(std::string_view text) : rest_(text) {}

  /// The next field, nullopt at the end of the text.
  std::optional<std::string> Next();
  /// The line number, from 1, at which the last field returned by Next begins.
  int Line() const { return fieldLine_; }

 private:
  void Take(std::size_t count);
  void SkipSeparator();

  std::string_view rest_;
  int line_ = 1;
  int fieldLine_ = 1;
};

}  // namespace sorvex
