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

// Reads the bitmaps of one theme and limits their total number of pixels. All are checked before any is decoded, so
// that refusing a theme costs neither the memory nor the time of its pictures.
class PictureReader {
 public:
  PictureReader(std::string folder, FaultSink report) : folder_(std::move(folder)), report_(std::move(report)) {}

  // Checks the bitmap, and reports a fault if it cannot be used. Otherwise Decode sets `picture` to what `make` makes
  // of it.
  void Check(Picture& picture, const std::string& name, Picture (*make)(Bitmap)) {
    const std::string path = FindFile(folder_, name);
    IncrementalReader file(path);
    if (!file.ReadUpTo(kBitmapHeaders))
      return report_({"missing-file", name, 0, "not found, or not a file that can be opened"});
    const std::optional<DeclaredBitmap> declared = ReadBitmapHeaders(file.Bytes());
    if (!declared) return report_({"not-a-bitmap", name, 0, kNotReadable});
    const std::int64_t pixels = PixelsOf(declared->size);
    if (pixels > pixelsLeft_)
      return report_(
          {"too-many-pixels", name, 0,
           "the pictures of a theme may have " + std::to_string(kMostPixels / 1'000'000) + " million pixels in all"});
    pixelsLeft_ -= pixels;
    if (file.Size() < declared->fewestBytes || (declared->runBits != 0 && !RunsEnd(file, *declared)))
      return report_({"broken-bitmap", name, 0, kNotReadable});
    checked_.push_back({&picture, name, path, *declared, make});
  }

  // The smallest first: the decoder may still refuse one.
  void Decode() {
    std::stable_sort(checked_.begin(), checked_.end(), [](const Checked& a, const Checked& b) {
      return PixelsOf(a.declared.size) < PixelsOf(b.declared.size);
    });
    for (const Checked& bitmap : checked_) {
      std::optional<Bitmap> pixels = DecodeFile(bitmap);
      if (pixels)
        *bitmap.picture = bitmap.make(*std::move(pixels));
      else
        report_({"broken-bitmap", bitmap.name, 0, kNotReadable});
    }
  }

 private:
  struct Checked {
    Picture* picture;
    std::string name;
    std::string path;
    DeclaredBitmap declared;
    Picture (*make)(Bitmap);
  };
  static constexpr char kNotReadable[] = "not a bitmap that can be read";

  static std::int64_t PixelsOf(Size size) { return std::int64_t{size.width} * size.height; }

  // Keeps little of the file in memory.
  static bool RunsEnd(IncrementalReader& file, const DeclaredBitmap& declared) {
    constexpr std::size_t pieceSize = 1 << 16;
    if (!file.ReadUpTo(declared.fewestBytes) || file.Bytes().size() < declared.fewestBytes) return false;
    RunScan runs(declared);
    std::string codes = file.Bytes().substr(declared.pixelOffset);
    codes.erase(0, runs.Follow(codes));
    for (std::uint64_t at = declared.pixelOffset; at < declared.mostBytes && !runs.Ended(); at += pieceSize) {
      if (!file.ReadNext(pieceSize) || file.Bytes().empty()) return false;
      codes += file.Bytes();
      codes.erase(0, runs.Follow(codes));
    }
    return runs.Ended();
  }

  // The file may have changed since it was checked. Data after the pixels is not read.
  static std::optional<Bitmap> DecodeFile(const Checked& bitmap) {
    IncrementalReader file(bitmap.path);
    return bitmap.declared.runBits != 0 ? DecodeRuns(file, bitmap.declared) : DecodeRows(file, bitmap.declared);
  }

  static std::optional<Bitmap> DecodeRuns(IncrementalReader& file, const DeclaredBitmap& declared) {
    if (!file.ReadUpTo(declared.mostBytes)) return std::nullopt;
    return DecodeBytes(std::move(file).Bytes(), declared.size);
  }

  // Decodes a few rows at a time: some decoders need several times the memory of the pixels.
  static std::optional<Bitmap> DecodeRows(IncrementalReader& file, const DeclaredBitmap& declared) {
    constexpr int pixelsAtOnce = 1 << 17;
    if (!file.ReadUpTo(declared.pixelOffset) || file.Bytes().size() < declared.pixelOffset) return std::nullopt;
    const std::string headers = file.Bytes();
    const auto [width, height] = declared.size;
    const int rowsAtOnce = std::max(1, pixelsAtOnce / width);
    Bitmap whole = Bitmap::Uninitialized(declared.size);
    for (int done = 0; done < height; done += rowsAtOnce) {
      const int rows = std::min(rowsAtOnce, height - done);
      if (!file.ReadNext(std::size_t{declared.rowBytes} * static_cast<std::size_t>(rows))) return std::nullopt;
      std::optional<Bitmap> strip = DecodeBytes(BitmapOfRows(headers, rows, file.Bytes()), {width, rows});
      if (!strip || rows == height) return strip;
      std::copy(strip->Pixels().begin(), strip->Pixels().end(),
                whole.Row(declared.topDown ? done : height - done - rows));
    }
    return whole;
  }

  static std::optional<Bitmap> DecodeBytes(std::string bytes, Size size) {
    if (DeclaredSize(bytes) != size) return std::nullopt;
    CompleteBitmap(bytes);
    std::optional<Bitmap> bitmap = DecodeBitmap(bytes);
    return bitmap && bitmap->Extent() == size ? std::move(bitmap) : std::nullopt;
  }

  std::string folder_;
  FaultSink report_;
  std::vector<Checked> checked_;
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
  PictureReader pictures(folder, report);
  const Long count = theme.items.LastItem + 1;
  theme.pictures.resize(static_cast<std::size_t>(count));
  for (std::size_t n = 0; n < theme.pictures.size(); ++n) {
    const std::string file = std::to_string(n) + ".bmp";
    ItemPictures& item = theme.pictures[n];
    pictures.Check(item.item, "ss" + file, MakePicture);
    pictures.Check(item.itemMask, "sm" + file, MakeMask);
    pictures.Check(item.container, "cs" + file, MakePicture);
    pictures.Check(item.containerMask, "cm" + file, MakeMask);
  }
  pictures.Check(theme.background, "bg.bmp", MakePicture);
  if (const auto text = ReadText(folder, kTargetFile, report)) theme.target = ParseTarget(*text, report);
  pictures.Check(theme.targetPicture, "pS.bmp", MakePicture);
  pictures.Check(theme.targetMask, "pM.bmp", MakeMask);
  if (ModFileExist::FileExists(FindFile(folder, kDetailsFile)))
    if (const auto text = ReadText(folder, kDetailsFile, report)) theme.details = ParseDetails(*text);
  pictures.Decode();
  if (theme.background) theme.background2 = MakeTwin(theme.background);
  return theme;
}

}  // namespace sorvex
