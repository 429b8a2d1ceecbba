// SPDX-License-Identifier: MIT
// Parsing the files of a theme, and reporting why one cannot be used.
#include "themes/theme_files.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

#include "base/field_reader.h"
#include "base/files.h"
#include "base/limits.h"
#include "base/text.h"
#include "game/mask.h"
#include "platform/decode_bitmap.h"
#include "themes/bitmap_check.h"

namespace sorvex {
namespace {

// Text from a theme file for use in a message: shortened, without control characters.
std::string Quoted(std::string_view text) {
  constexpr std::size_t longest = 40;
  std::string shown;
  for (const char c : text) {
    const bool continues = (static_cast<std::uint8_t>(c) & 0xC0) == 0x80;
    if (shown.size() >= longest && !continues) return "'" + shown + "...'";
    shown += static_cast<std::uint8_t>(c) < 0x20 ? ' ' : c;
  }
  return "'" + shown + "'";
}

bool IsBlank(std::string_view line) { return line.find_first_not_of(" \t") == std::string_view::npos; }

// Reports a fault and returns nullopt if `text` is not a coordinate.
std::optional<Integer> ParseCoordinate(const std::string& file, int line, std::string_view text,
                                       const FaultSink& report) {
  if (IsBlank(text)) {
    report({"blank-line", file, line, "a blank line is not a number"});
  } else if (!IsNumber(text)) {
    report({LooksLikeUtf16(text) ? "utf-16" : "not-a-number", file, line, Quoted(text) + " is not a number"});
  } else {
    try {
      return ToInteger(LeadingNumber(text));
    } catch (const RuntimeError&) {
      report({"number-range", file, line, Quoted(text) + " is not between -32768 and 32767"});
    }
  }
  return std::nullopt;
}

// Removes the first line from `text` and returns it without its line end (CR LF, LF or CR).
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end);
  if (!text.empty()) text.remove_prefix(text.starts_with("\r\n") ? 2 : 1);
  return line;
}

// Reports a fault and returns nullopt if the file cannot be used.
std::optional<std::string> ReadText(const std::string& folder, const std::string& name, const FaultSink& report) {
  const std::string path = FindFile(folder, name);
  const std::optional<std::string> bytes = ReadFile(path, kLongestText);
  if (bytes) return DecodeText(*bytes);
  if (ModFileExist::FileExists(path))
    report({"text-too-long", name, 0,
            "cannot be read, or is longer than the " + std::to_string(kLongestText >> 10) +
                " KiB that a text file of a theme may have"});
  else
    report({"missing-file", name, 0, "cannot be read as a text file of a theme"});
  return std::nullopt;
}

// Reads the bitmaps of one theme and limits their total number of pixels.
class BitmapReader {
 public:
  BitmapReader(std::string folder, FaultSink report) : folder_(std::move(folder)), report_(std::move(report)) {}

  // Reports a fault and returns nullopt if the bitmap cannot be used.
  std::optional<Bitmap> Read(const std::string& name) {
    IncrementalReader file(FindFile(folder_, name));
    if (!file.ReadUpTo(kBitmapHeaders))
      return Refuse("missing-file", name, "not found, or not a file that can be opened");
    const std::optional<DeclaredBitmap> declared = ReadBitmapHeaders(file.Bytes());
    if (!declared) return Refuse("not-a-bitmap", name, kNotReadable);
    const std::int64_t pixels = std::int64_t{declared->size.width} * declared->size.height;
    if (pixels > pixelsLeft_)
      return Refuse(
          "too-many-pixels", name,
          "the pictures of a theme may have " + std::to_string(kMostPixels / 1'000'000) + " million pixels in all");
    pixelsLeft_ -= pixels;
    // Data after the pixels is not read.
    if (!file.ReadUpTo(declared->bytes) || DeclaredSize(file.Bytes()) != declared->size)
      return Refuse("broken-bitmap", name, kNotReadable);
    std::string bytes = std::move(file).Bytes();
    CompleteBitmap(bytes);
    std::optional<Bitmap> bitmap = DecodeBitmap(bytes);
    return bitmap ? std::move(bitmap) : Refuse("broken-bitmap", name, kNotReadable);
  }

 private:
  static constexpr char kNotReadable[] = "not a bitmap that can be read";

  std::nullopt_t Refuse(std::string_view code, const std::string& name, const std::string& reason) {
    report_({code, name, 0, reason});
    return std::nullopt;
  }

  std::string folder_;
  FaultSink report_;
  std::int64_t pixelsLeft_ = kMostPixels;
};

// Iterates over the lines of a text.
class LineReader {
 public:
  explicit LineReader(std::string_view text) : rest_(text) {}
  bool AtEnd() const { return rest_.empty(); }
  void SkipRest() { rest_ = {}; }
  /// The number of the last line taken, from 1.
  int Line() const { return line_; }
  std::string_view Next() {
    ++line_;
    return TakeLine(rest_);
  }

 private:
  std::string_view rest_;
  int line_ = 0;
};

// Reads the four numbers of one item. If reading continues after a blank line was reported, the line is skipped.
class ItemLines {
 public:
  ItemLines(LineReader& lines, const FaultSink& report) : lines_(lines), report_(report) {}

  // Reports a fault and returns 0 if the line is not a number.
  Integer Next() {
    while (!lines_.AtEnd()) {
      const std::string_view line = lines_.Next();
      const std::optional<Integer> number = ParseCoordinate(kItemsFile, lines_.Line(), line, report_);
      if (!number) valid_ = false;
      if (IsBlank(line)) continue;
      if (LooksLikeUtf16(line)) {
        lines_.SkipRest();
        found_ = 0;
        break;
      }
      ++found_;
      return number.value_or(0);
    }
    if (found_ > 0)
      report_({"item-cut-short", kItemsFile, lines_.Line(),
               "the last item has " + std::to_string(found_) + " of its 4 lines"});
    found_ = 0;
    return 0;
  }
  bool Complete() const { return found_ == kLinesPerItem; }
  bool Valid() const { return valid_; }

 private:
  LineReader& lines_;
  const FaultSink& report_;
  int found_ = 0;
  bool valid_ = true;
};

}  // namespace

ThemeError::ThemeError(const Fault& fault)
    : runtime_error(fault.file + (fault.line > 0 ? ", line " + std::to_string(fault.line) : "") + ": " + fault.reason) {
}

void ThrowThemeError(const Fault& fault) { throw ThemeError(fault); }

bool LooksLikeUtf16(std::string_view text) {
  return text.find('\0') != std::string_view::npos || text.starts_with("ÿþ") || text.starts_with("þÿ");
}

ItemTable ParseItems(std::string_view text, const FaultSink& report) {
  ItemTable items;
  LineReader lines(text);
  while (!lines.AtEnd()) {
    const Long item = items.LastItem + 1;
    if (item == kMostItems) {
      report({"too-many-items", kItemsFile, lines.Line() + 1,
              "a theme has at most " + std::to_string(kMostItems) + " items"});
      break;
    }
    ItemLines group(lines, report);
    for (auto* coordinate : {&items.ItemX(item), &items.ItemY(item), &items.ContX(item), &items.ContY(item)})
      *coordinate = group.Next();
    if (!group.Complete()) break;
    items.ItemInPlay(item) = group.Valid();
    items.ContInPlay(item) = group.Valid();
    items.LastItem = item;
  }
  return items;
}

Target ParseTarget(std::string_view text, const FaultSink& report) {
  FieldReader fields(text);
  Target target;
  for (Integer* coordinate : {&target.x, &target.y}) {
    const std::optional<std::string> field = fields.Next();
    if (!field) {
      report({"target-cut-short", kTargetFile, 0, "fewer than two numbers"});
      break;
    }
    if (!field->empty()) *coordinate = ParseCoordinate(kTargetFile, fields.Line(), *field, report).value_or(0);
    if (LooksLikeUtf16(*field)) break;
  }
  return target;
}

Details ParseDetails(std::string_view text) {
  FieldReader fields(text);
  Details details;
  details.description = fields.Next().value_or("");
  details.date = fields.Next().value_or("");
  return details;
}

bool IsComplete(const std::string& folder) {
  const bool hasItems = ModFileExist::FileExists(FindFile(folder, kItemsFile));
  const bool hasTarget = ModFileExist::FileExists(FindFile(folder, kTargetFile));
  return hasItems && hasTarget;
}

Theme ReadTheme(const std::string& folder, const FaultSink& report) {
  Theme theme;
  if (const auto text = ReadText(folder, kItemsFile, report)) theme.items = ParseItems(*text, report);
  BitmapReader bitmaps(folder, report);
  const auto picture = [&](const std::string& name) {
    std::optional<Bitmap> pixels = bitmaps.Read(name);
    return pixels ? MakePicture(*std::move(pixels)) : nullptr;
  };
  const auto mask = [&](const std::string& name) {
    std::optional<Bitmap> pixels = bitmaps.Read(name);
    return pixels ? MakeMask(*std::move(pixels)) : nullptr;
  };
  for (Long n = 0; n <= theme.items.LastItem; ++n) {
    const std::string file = std::to_string(n) + ".bmp";
    ItemPictures pictures;
    pictures.item = picture("ss" + file);
    pictures.itemMask = mask("sm" + file);
    pictures.container = picture("cs" + file);
    pictures.containerMask = mask("cm" + file);
    theme.pictures.push_back(std::move(pictures));
  }
  theme.background = picture("bg.bmp");
  if (theme.background) theme.background2 = MakeTwin(theme.background);
  if (const auto text = ReadText(folder, kTargetFile, report)) theme.target = ParseTarget(*text, report);
  theme.targetPicture = picture("pS.bmp");
  theme.targetMask = mask("pM.bmp");
  if (ModFileExist::FileExists(FindFile(folder, kDetailsFile)))
    if (const auto text = ReadText(folder, kDetailsFile, report)) theme.details = ParseDetails(*text);
  return theme;
}

}  // namespace sorvex
