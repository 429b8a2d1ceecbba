// SPDX-License-Identifier: MIT
// Files that cannot be read, said in the maker's words, and what stands in the text and sound files.
#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

#include "base/field_reader.h"
#include "base/files.h"
#include "base/limits.h"
#include "base/text.h"
#include "base/wave.h"
#include "highscores/highscore_table.h"
#include "kit/check.h"
#include "kit/source.h"
#include "themes/bitmap_check.h"

namespace sorvex {
namespace {

struct Signature {
  std::string_view bytes;  // '?' stands for any
  const char* name;
};

constexpr Signature kSignatures[] = {
    {"\x89PNG", "a PNG picture"},
    {"\xFF\xD8\xFF", "a JPEG picture"},
    {"GIF8", "a GIF picture"},
    {"RIFF????WEBP", "a WebP picture"},
    {"II*", "a TIFF picture"},
    {"MM\0*", "a TIFF picture"},
    {{"\0\0\1\0", 4}, "an icon"},
    {"8BPS", "a Photoshop picture"},
    {"gimp xcf", "a GIMP picture"},
    {"ID3", "an MP3 sound"},
    {"\xFF\xFB", "an MP3 sound"},
    {"OggS", "an Ogg sound"},
    {"fLaC", "a FLAC sound"},
    {"????ftyp", "an MPEG-4 file"},
    {"RIFF????WAVE", "a wave file of compressed sound or without samples"},
};

std::string StartOf(const std::string& folder, const std::string& file) {
  return ReadStart(FindFile(folder, file), kBitmapHeaders).value_or("");
}

std::vector<std::string> NamesLike(const std::string& folder, std::string_view name) {
  std::vector<std::string> names;
  std::error_code error;
  const std::filesystem::path path(std::u8string(folder.begin(), folder.end()));
  for (auto entry = std::filesystem::directory_iterator(path, error);
       !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    const std::u8string entryName = entry->path().filename().u8string();
    std::string text(entryName.begin(), entryName.end());
    if (EqualIgnoringCase(text, name)) names.push_back(std::move(text));
  }
  std::ranges::sort(names);
  return names;
}

std::string WhyMissing(const std::string& folder, const std::string& file) {
  const std::vector<std::string> names = NamesLike(folder, file);
  if (names.size() == 1) return names.front() + " is no file that can be opened";
  std::string both;
  for (const std::string& name : names) both += (both.empty() ? "" : " and ") + name;
  return names.empty() ? "not found" : "not found, and of " + both + " the game takes none: keep one";
}

std::string WhyNoBitmap(std::string_view start) {
  const std::optional<std::string> kind = KindOf(start);
  if (kind) return "this is " + *kind + ", whatever its name says; save it as a Windows bitmap";
  if (!start.starts_with("BM")) return "not a Windows bitmap, which begins with the letters BM";
  return "its header is none that the game takes: sides from 1 to " + std::to_string(kLongestSide) +
         " pixels, 1, 4, 8, 16, 24 or 32 bits a pixel";
}

std::string WhyBroken(const std::string& folder, const std::string& file) {
  const std::optional<DeclaredBitmap> declared = ReadBitmapHeaders(StartOf(folder, file));
  const std::optional<std::string> bytes =
      declared ? ReadStart(FindFile(folder, file), declared->mostBytes) : std::nullopt;
  if (!bytes) return "not a bitmap that can be read";
  const std::string size = std::to_string(declared->size.width) + " x " + std::to_string(declared->size.height);
  if (DeclaredSize(*bytes)) return "a form of bitmap that cannot be read; save it with 24 bits a pixel";
  return "cut off: its header says " + size + " pixels, and the file ends after " + std::to_string(bytes->size()) +
         " bytes, before the last of them";
}

// The fields of a small text file with their lines; none when the file cannot be read.
struct Field {
  std::string text;
  int line;
};
std::vector<Field> FieldsOf(std::string_view text) {
  std::vector<Field> fields;
  FieldReader reader(text);
  while (const std::optional<std::string> field = reader.Next()) fields.push_back({*field, reader.Line()});
  return fields;
}

// Empty when the file cannot be read.
std::string TextOf(const std::string& folder, const std::string& file) {
  return DecodeText(ReadFile(FindFile(folder, file), kLongestText).value_or(""));
}

void CheckTarget(const std::string& folder, Findings& findings) {
  const std::vector<Field> fields = FieldsOf(TextOf(folder, kTargetFile));
  const auto isMore = [](const Field& field) { return !field.text.empty(); };
  if (fields.size() < 3 || std::none_of(fields.begin() + 2, fields.end(), isMore)) return;
  findings.push_back({Severity::Warning, "target-extra-values", kTargetFile, fields[2].line, std::nullopt,
                      std::to_string(fields.size()) + " values; the game reads the first two, '" + fields[0].text +
                          "' and '" + fields[1].text + "', as the target's x and y"});
}

void WarnOfUtf16(const std::string& file, Findings& findings) {
  findings.push_back({Severity::Warning, "utf-16", file, 0, std::nullopt, "text in UTF-16; save it as UTF-8"});
}

// An unquoted description ends at its first comma, and what follows is taken for the date.
void CheckDetails(const std::string& folder, Findings& findings) {
  const std::string text = TextOf(folder, kDetailsFile);
  if (LooksLikeUtf16(text)) return WarnOfUtf16(kDetailsFile, findings);
  const std::vector<Field> fields = FieldsOf(text);
  if (fields.size() < 2) return;
  const std::string& date = fields[1].text;
  const bool quoted = text.starts_with('"');
  const bool isNoDate = !quoted && fields[1].line == fields[0].line && !date.empty() &&
                        date.find_first_of("0123456789") == std::string::npos;
  const bool more = std::any_of(fields.begin() + 2, fields.end(), [](const Field& f) { return !f.text.empty(); });
  if (!isNoDate && !more) return;
  findings.push_back({Severity::Warning, "details-cut", kDetailsFile, fields[1].line, std::nullopt,
                      "the description ends at '" + fields[0].text + "' and the date reads '" + date +
                          "'; a description with commas stands in double quotes"});
}

void CheckHighScores(const std::string& folder, Findings& findings) {
  const std::optional<std::string> bytes = ReadFile(FindFile(folder, kHighScoresFile), kLongestText);
  if (bytes && LooksLikeUtf16(DecodeText(*bytes))) WarnOfUtf16(kHighScoresFile, findings);
  if (bytes) return;
  findings.push_back({Severity::Warning, "no-high-scores", kHighScoresFile, 0, std::nullopt,
                      "not found, or not readable: an error box greets the players each time the theme is loaded"});
}

}  // namespace

std::optional<std::string> KindOf(std::string_view start) {
  if (start.empty()) return "an empty file";
  const auto begins = [&](const Signature& signature) {
    return start.size() >= signature.bytes.size() &&
           std::equal(signature.bytes.begin(), signature.bytes.end(), start.begin(),
                      [](char expected, char c) { return expected == '?' || expected == c; });
  };
  const auto* found = std::ranges::find_if(kSignatures, begins);
  return found == std::end(kSignatures) ? std::nullopt : std::optional<std::string>(found->name);
}

std::optional<std::string> WhyNoSound(std::string_view bytes) {
  const std::optional<Wave> wave = ReadWave(bytes);
  if (wave && !wave->samples.empty()) return std::nullopt;
  return "this is " + KindOf(bytes).value_or("no wave file") + "; a wave file of uncompressed sound is expected";
}

Finding Explained(const std::string& folder, const Fault& fault) {
  Finding finding{Severity::Error, fault.code, fault.file, fault.line, std::nullopt, fault.reason};
  if (fault.code == "missing-file") {
    finding.message = WhyMissing(folder, fault.file);
    if (NamesLike(folder, fault.file).size() > 1) finding.code = "ambiguous-name";
  } else if (fault.code == "not-a-bitmap") {
    finding.message = WhyNoBitmap(StartOf(folder, fault.file));
  } else if (fault.code == "broken-bitmap") {
    finding.message = WhyBroken(folder, fault.file);
  } else if (fault.code == "utf-16") {
    finding.line = 0;
    finding.message = "text in UTF-16; save it as UTF-8";
  } else if (fault.code == "not-a-number") {
    finding.message += "; one whole number and nothing else is expected";
  } else if (fault.code == "blank-line") {
    finding.message = "a blank line; an item has four lines with a number each, and nothing follows the last one";
  } else if (fault.code == "target-cut-short") {
    finding.message =
        "fewer than two numbers; the target's x and y are expected, with a comma or a line end between them";
  }
  return finding;
}

void CheckTexts(const std::string& folder, Findings& findings) {
  const auto isFaulty = [&](const Finding& finding) { return finding.file == kTargetFile; };
  if (std::ranges::none_of(findings, isFaulty)) CheckTarget(folder, findings);
  CheckDetails(folder, findings);
  CheckHighScores(folder, findings);
}

void CheckSounds(const std::string& folder, Findings& findings) {
  for (const auto& [key, file] : kSounds) {
    const std::string path = FindFile(folder, file);
    const std::optional<std::string> bytes = ReadFile(path, kLargestSound);
    if (!bytes && !ModFileExist::FileExists(path)) {
      findings.push_back({Severity::Warning, "missing-sound", file, 0, std::nullopt,
                          WhyMissing(folder, file) + "; the desktop's bell rings instead"});
      continue;
    }
    if (const auto why = bytes ? WhyNoSound(*bytes) : "longer than 32 MiB")
      findings.push_back(
          {Severity::Warning, "bad-sound", file, 0, std::nullopt, *why + ", and the desktop's bell rings instead"});
  }
}

}  // namespace sorvex
