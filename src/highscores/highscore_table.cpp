// SPDX-License-Identifier: MIT
// Reading and writing HighScores.ini: thirty quoted fields, one per line.
#include "highscores/highscore_table.h"

#include <optional>

#include "base/field_reader.h"
#include "base/files.h"
#include "base/limits.h"
#include "base/runtime_error.h"
#include "base/text.h"

namespace sorvex {
namespace {

const HighScore& DefaultRow() {
  static const HighScore row{"Nobody", "00/00/00", "100"};
  return row;
}

std::string PathOf(Desktop& desktop, const std::string& themeName) {
  return FindFile(JoinPath(desktop.ProgramFolder(), themeName), kHighScoresFile);
}

std::string Quoted(const HighScore& score) {
  std::string lines;
  for (const std::string& field : {score.name, score.date, score.time}) lines += '"' + field + "\"\r\n";
  return lines;
}

void TakeRows(Desktop& desktop, frmMain& form, const std::string& bytes) {
  const std::string text = DecodeText(bytes);
  FieldReader fields(text);
  for (int row = 0; row < kHighScoreRows; ++row) {
    HighScore score;
    score.name = fields.Next().value_or("");
    score.date = fields.Next().value_or("");
    score.time = fields.Next().value_or("");
    SetHighScore(desktop, form, row, score.time.empty() ? DefaultRow() : score);
  }
}

// True if every line of the file begins with a quote, as in a saved table.
bool IsSavedTable(std::string_view bytes) {
  constexpr char lineEnds[] = "\r\n";
  std::size_t at = 0;
  while ((at = bytes.find_first_not_of(lineEnds, at)) != bytes.npos) {
    if (bytes[at] != '"') return false;
    at = bytes.find_first_of(lineEnds, at);
  }
  return true;
}

std::string TextOf(const frmMain& form) {
  std::string text;
  for (int row = 0; row < kHighScoreRows; ++row) text += Quoted(HighScoreAt(form, row));
  return text;
}

}  // namespace

std::string DefaultHighScoreText() {
  std::string text;
  for (int row = 0; row < kHighScoreRows; ++row) text += Quoted(DefaultRow());
  return text;
}

HighScore HighScoreAt(const frmMain& form, int row) {
  return {form.lblHighName(row).Caption, form.lblHighDate(row).Caption, form.lblHighTime(row).Caption};
}

void SetHighScore(Desktop& desktop, frmMain& form, int row, const HighScore& score) {
  form.lblHighName(row).SetCaption(desktop, score.name);
  form.lblHighDate(row).SetCaption(desktop, score.date);
  form.lblHighTime(row).SetCaption(desktop, score.time);
}

void LoadHighScores(Desktop& desktop, frmMain& form, const std::string& themeName) {
  for (int row = 0; row < kHighScoreRows; ++row) SetHighScore(desktop, form, row, DefaultRow());
  const std::optional<std::string> bytes = ReadFile(PathOf(desktop, themeName), kLongestText);
  if (bytes)
    TakeRows(desktop, form, *bytes);
  else
    desktop.ShowMessage("Highscore file not found", "File not found", BoxIcon::Exclamation);
}

void SaveHighScores(Desktop& desktop, frmMain& form, const std::string& themeName,
                    const std::function<bool()>& change) {
  const std::string path = PathOf(desktop, themeName);
  desktop.UpdateFile(path, [&]() -> std::optional<std::string> {
    const std::optional<std::string> bytes = ReadFile(path, kLongestText);
    if (bytes) TakeRows(desktop, form, *bytes);
    if (!change()) return std::nullopt;
    if (!bytes && PathExists(path)) throw PathAccessError();
    // A theme from a stranger may link to any file of the player's.
    if (bytes && IsLink(path) && !IsSavedTable(*bytes)) throw PathAccessError();
    std::string text = TextOf(form);
    if (text.size() > kLongestText) throw PathAccessError();
    return text;
  });
}

}  // namespace sorvex
