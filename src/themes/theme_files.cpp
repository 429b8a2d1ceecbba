// SPDX-License-Identifier: MIT
// Parsing and loading the files of a theme, with a plain reason for every one that cannot be used.
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
#include "themes/bitmap_check.h"

namespace sorvex {
namespace {

constexpr char kItemsFile[] = "Theme.ini";
constexpr char kTargetFile[] = "Theme2.ini";
constexpr char kDetailsFile[] = "ThemeDetails.ini";
constexpr int kLinesPerItem = 4;

ThemeError ErrorAt(const std::string& file, int line, const std::string& reason) {
  return ThemeError(file + ", line " + std::to_string(line) + ": " + reason);
}

// Text from a theme as a message may show it: short, without control characters.
std::string Shown(std::string_view text) {
  constexpr std::size_t longest = 40;
  std::string shown;
  for (const char c : text) {
    const bool continues = (static_cast<std::uint8_t>(c) & 0xC0) == 0x80;
    if (shown.size() >= longest && !continues) return "'" + shown + "...'";
    shown += static_cast<std::uint8_t>(c) < 0x20 ? ' ' : c;
  }
  return "'" + shown + "'";
}

Integer ParseCoordinate(const std::string& file, int line, std::string_view text) {
  if (text.find_first_not_of(" \t") == std::string_view::npos)
    throw ErrorAt(file, line, "a blank line is not a number");
  if (!IsNumber(text)) throw ErrorAt(file, line, Shown(text) + " is not a number");
  try {
    return ToInteger(LeadingNumber(text));
  } catch (const RuntimeError&) {
    throw ErrorAt(file, line, Shown(text) + " is not between -32768 and 32767");
  }
}

// Takes the first line off `text`, without its end (CR LF, LF or CR).
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end);
  if (!text.empty()) text.remove_prefix(text.starts_with("\r\n") ? 2 : 1);
  return line;
}

std::string ReadText(const std::string& folder, const std::string& name) {
  const std::string path = FindFile(folder, name);
  const std::optional<std::string> bytes = ReadFile(path, kLongestText);
  if (!bytes && ModFileExist::FileExists(path))
    throw ThemeError(name + ": cannot be read, or is longer than the " + std::to_string(kLongestText >> 10) +
                     " KiB that a text file of a theme may have");
  if (!bytes) throw ThemeError(name + ": cannot be read as a text file of a theme");
  return DecodeText(*bytes);
}

// Reads the bitmaps of one theme, as long as they fit into memory together.
class BitmapReader {
 public:
  BitmapReader(Desktop& desktop, std::string folder) : desktop_(desktop), folder_(std::move(folder)) {}

  Bitmap Read(const std::string& name) {
    const std::string path = FindFile(folder_, name);
    const std::optional<std::string> start = ReadStart(path, kBitmapHeaders);
    if (!start) throw ThemeError(name + ": not found, or not a file that can be opened");
    const std::optional<DeclaredBitmap> declared = ReadBitmapHeaders(*start);
    if (!declared) throw NotReadable(name);
    pixelsLeft_ -= std::int64_t{declared->size.width} * declared->size.height;
    if (pixelsLeft_ < 0)
      throw ThemeError(name + ": the pictures of a theme may have " + std::to_string(kMostPixels / 1'000'000) +
                       " million pixels in all");
    // What a file holds behind its pixels costs nothing. The file may have changed since its start was read.
    const std::optional<std::string> bytes = ReadStart(path, declared->bytes);
    if (!bytes || DeclaredSize(*bytes) != declared->size) throw NotReadable(name);
    std::optional<Bitmap> bitmap = desktop_.DecodeBitmap(*bytes);
    if (!bitmap) throw NotReadable(name);
    return *std::move(bitmap);
  }

 private:
  static ThemeError NotReadable(const std::string& name) {
    return ThemeError(name + ": not a bitmap that can be read");
  }

  Desktop& desktop_;
  std::string folder_;
  std::int64_t pixelsLeft_ = kMostPixels;
};

}  // namespace

ItemTable ParseItems(std::string_view text) {
  ItemTable items;
  int line = 0;
  while (!text.empty()) {
    const Long item = items.LastItem + 1;
    if (item == kMostItems)
      throw ErrorAt(kItemsFile, line + 1, "a theme has at most " + std::to_string(kMostItems) + " items");
    for (auto* coordinate : {&items.ItemX(item), &items.ItemY(item), &items.ContX(item), &items.ContY(item)}) {
      if (text.empty())
        throw ErrorAt(kItemsFile, line,
                      "the last item has " + std::to_string(line % kLinesPerItem) + " of its 4 lines");
      *coordinate = ParseCoordinate(kItemsFile, ++line, TakeLine(text));
    }
    items.ItemInPlay(item) = true;
    items.ContInPlay(item) = true;
    items.LastItem = item;
  }
  return items;
}

Target ParseTarget(std::string_view text) {
  FieldReader fields(text);
  const auto next = [&] {
    const std::optional<std::string> field = fields.Next();
    if (!field) throw ThemeError(std::string(kTargetFile) + ": fewer than two numbers");
    return field->empty() ? Integer{0} : ParseCoordinate(kTargetFile, fields.Line(), *field);
  };
  Target target;
  target.x = next();
  target.y = next();
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

Theme ReadTheme(Desktop& desktop, const std::string& folder) {
  Theme theme;
  theme.items = ParseItems(ReadText(folder, kItemsFile));
  BitmapReader bitmaps(desktop, folder);
  const auto picture = [&](const std::string& name) { return MakePicture(bitmaps.Read(name)); };
  const auto mask = [&](const std::string& name) { return MakeMask(bitmaps.Read(name)); };
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
  theme.background2 = MakeTwin(theme.background);
  theme.target = ParseTarget(ReadText(folder, kTargetFile));
  theme.targetPicture = picture("pS.bmp");
  theme.targetMask = mask("pM.bmp");
  if (ModFileExist::FileExists(FindFile(folder, kDetailsFile)))
    theme.details = ParseDetails(ReadText(folder, kDetailsFile));
  return theme;
}

}  // namespace sorvex
