// SPDX-License-Identifier: MIT
// Pictures become bitmaps with masks, places the text files of numbers, sounds stay as they are.
#include "kit/make.h"

#include <algorithm>
#include <filesystem>
#include <span>
#include <system_error>
#include <utility>

#include "base/files.h"
#include "base/limits.h"
#include "base/runtime_error.h"
#include "game/return_item.h"
#include "highscores/highscore_table.h"
#include "kit/check.h"
#include "kit/save_file.h"
#include "kit/write_bitmap.h"
#include "platform/decode_rgba.h"
#include "themes/theme_files.h"

namespace sorvex {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kLargestPictureFile = 64 << 20;

// Makes one theme.
class Maker {
 public:
  Maker(const ThemeSource& source, Findings& findings) : source_(source), findings_(findings) {}

  MadeTheme Make() {
    AddBackground();
    AddPair("pS.bmp", "pM.bmp", source_.target);
    std::string places;
    for (std::size_t n = 0; n < source_.items.size(); ++n) places += AddItem(n);
    theme_.files[kItemsFile] = places;
    theme_.files[kTargetFile] = Lines({source_.targetAt.x, source_.targetAt.y});
    AddDetails();
    for (std::size_t i = 0; i < kSounds.size(); ++i)
      if (source_.sounds[i]) AddSound(kSounds[i].file, *source_.sounds[i]);
    std::ranges::stable_sort(findings_, {}, &Finding::line);
    return std::move(theme_);
  }

 private:
  // A picture that several may share.
  struct Shared {
    std::optional<Bitmap> rgba;
    std::optional<PictureAndMask> separated;
  };

  static std::string Lines(std::initializer_list<int> numbers) {
    std::string lines;
    for (const int number : numbers) lines += std::to_string(number) + "\r\n";
    return lines;
  }

  void Complain(std::string_view code, int line, const std::string& message) {
    findings_.push_back({Severity::Error, code, source_.file, line, std::nullopt, message});
  }

  std::optional<std::string> Read(const NamedFile& file, std::string_view code, std::uintmax_t limit) {
    const std::string path = JoinPath(source_.folder, file.path);
    std::optional<std::string> bytes = ReadFile(path, limit);
    if (bytes) return bytes;
    Complain(code, file.line,
             file.path + (ModFileExist::FileExists(path)
                              ? ": not readable, or longer than " + std::to_string(limit >> 20) + " MiB"
                              : ": not found, or not a file that can be opened"));
    return std::nullopt;
  }

  std::optional<Bitmap> Decode(const NamedFile& file, std::int64_t mostPixels) {
    const std::optional<std::string> bytes = Read(file, "source-picture", kLargestPictureFile);
    if (!bytes) return std::nullopt;
    try {
      return DecodeRgba(*bytes, mostPixels);
    } catch (const PictureError& error) {
      const std::optional<std::string> kind = KindOf(*bytes);
      Complain("source-picture", file.line, file.path + (kind ? " (" + *kind + "): " : ": ") + error.what());
    }
    return std::nullopt;
  }

  // The picture that `file` names, which takes the room of `bitmaps` of its size in the theme; null if it cannot be
  // used. It is read, and complained of, once.
  Shared* Picture(const NamedFile& file, int bitmaps) {
    if (file.path.empty()) return nullptr;
    const auto [place, isNew] = pictures_.try_emplace(file.path);
    Shared& shared = place->second;
    if (isNew) shared.rgba = Decode(file, pixelsLeft_ / bitmaps);
    if (!shared.rgba) return nullptr;
    const Size size = shared.rgba->Extent();
    const std::int64_t pixels = std::int64_t{size.width} * size.height * bitmaps;
    if (pixels > pixelsLeft_) {
      Complain("source-picture", file.line,
               file.path + ": with it the pictures and masks of the theme have more than " +
                   std::to_string(kMostPixels / 1'000'000) + " million pixels");
      return nullptr;
    }
    pixelsLeft_ -= pixels;
    return &shared;
  }

  void AddBackground() {
    const Shared* shared = Picture(source_.background, 1);
    if (shared == nullptr) return;
    Bitmap picture = *shared->rgba;
    std::for_each_n(picture.Row(0), picture.Pixels().size(), [](Pixel& pixel) {
      const Pixel alpha = pixel >> 24;
      Pixel opaque = kBlack;
      for (const int shift : {0, 8, 16})
        opaque |= ((pixel >> shift & 0xFF) * alpha + 255 * (255 - alpha) + 127) / 255 << shift;
      pixel = opaque;
    });
    theme_.files["bg.bmp"] = EncodePicture(picture);
  }

  // Returns the picture's size.
  std::optional<Size> AddPair(const std::string& picture, const std::string& mask, const NamedFile& file) {
    Shared* shared = Picture(file, 2);
    if (shared == nullptr) return std::nullopt;
    if (!shared->separated) {
      shared->separated = Separated(*shared->rgba, source_.threshold);
      const std::span<const Pixel> mask = shared->separated->mask.Pixels();
      if (std::ranges::find(mask, kBlack) == mask.end())
        Complain("source-picture", file.line,
                 file.path + ": nothing of it can be seen: no pixel's alpha reaches the threshold, " +
                     std::to_string(source_.threshold));
    }
    theme_.files[picture] = EncodePicture(shared->separated->picture);
    theme_.files[mask] = EncodeMask(shared->separated->mask);
    return shared->rgba->Extent();
  }

  // Returns the item's lines.
  std::string AddItem(std::size_t number) {
    const SourceItem& item = source_.items[number];
    const std::string file = std::to_string(number) + ".bmp";
    const std::optional<Size> size = AddPair("ss" + file, "sm" + file, item.picture);
    const std::optional<Size> container = AddPair("cs" + file, "cm" + file, item.container);
    Place at = item.at.value_or(Place{});
    if (!item.at && size && container) at = RestSpot(item, container->height, size->height);
    theme_.places.push_back(item.at ? std::nullopt : std::optional(at));
    return Lines({at.x, at.y, item.containerAt.x, item.containerAt.y});
  }

  Place RestSpot(const SourceItem& item, int containerHeight, int itemHeight) {
    try {
      const RestPlace rest(ToInteger(item.containerAt.x), ToInteger(item.containerAt.y), containerHeight, itemHeight);
      return {rest.x, rest.y};
    } catch (const RuntimeError&) {
      Complain("source-value", item.line, "the item's rest place in its container is not between -32768 and 32767");
      return {};
    }
  }

  void AddDetails() {
    if (source_.description.empty() && source_.date.empty()) return;
    std::string text = DetailsText(source_.description, source_.date);
    if (text.size() > kLongestText)
      Complain("source-value", 0, "description and date are longer than the 64 KiB that they may have");
    theme_.files[kDetailsFile] = std::move(text);
  }

  void AddSound(const char* name, const NamedFile& file) {
    if (file.path.empty()) return;
    std::optional<std::string> bytes = Read(file, "source-sound", kLargestSound);
    if (!bytes) return;
    if (const auto why = WhyNoSound(*bytes)) return Complain("source-sound", file.line, file.path + ": " + *why);
    theme_.files[name] = *std::move(bytes);
  }

  const ThemeSource& source_;
  Findings& findings_;
  MadeTheme theme_;
  std::map<std::string, Shared> pictures_;
  std::int64_t pixelsLeft_ = kMostPixels;
};

// Every name that a file of a theme can have, but the table of best times.
std::vector<std::string> AllNames() {
  std::vector<std::string> names{kDetailsFile};
  for (const auto& [key, file] : kSounds) names.emplace_back(file);
  for (int n = 0; n < kMostItems; ++n)
    for (const char* kind : {"ss", "sm", "cs", "cm"}) names.push_back(kind + std::to_string(n) + ".bmp");
  return names;
}

std::vector<const NamedFile*> FilesOf(const ThemeSource& source) {
  std::vector<const NamedFile*> files{&source.background, &source.target};
  for (const SourceItem& item : source.items) files.insert(files.end(), {&item.picture, &item.container});
  for (const std::optional<NamedFile>& sound : source.sounds)
    if (sound) files.push_back(&*sound);
  std::erase_if(files, [](const NamedFile* file) { return file->path.empty(); });
  return files;
}

// Straight double quotes as typographic ones, line ends as CR LF.
std::string FieldText(const std::string& text) {
  std::string field;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool opens = i == 0 || std::string_view(" \t\r\n([").find(text[i - 1]) != std::string_view::npos;
    if (text[i] == '"')
      field += opens ? "\u201C" : "\u201D";
    else if (text[i] == '\n' && (i == 0 || text[i - 1] != '\r'))
      field += "\r\n";
    else
      field += text[i];
  }
  return field;
}

}  // namespace

MadeTheme MakeTheme(const ThemeSource& source, Findings& findings) { return Maker(source, findings).Make(); }

std::string WhyNotInto(const std::string& folder, const ThemeSource& source) {
  std::error_code error;
  const fs::path into = PathOf(folder);
  if (!fs::exists(into, error)) return "";
  if (!fs::is_directory(into, error)) return folder + " is not a folder";
  if (PathExists(FindFile(folder, kSourceFile))) return folder + " holds a source; name another folder for the theme";
  for (const NamedFile* file : FilesOf(source))
    if (fs::equivalent(PathOf(JoinPath(source.folder, file->path)).parent_path(), into, error))
      return folder + " holds " + file->path + ", of which the theme is to be made; name another folder";
  bool files = false;
  for (const fs::directory_entry& entry : fs::directory_iterator(into, error))
    files = files || !entry.is_directory(error);
  if (files && !PathExists(FindFile(folder, kItemsFile)))
    return folder + " holds files and is no theme; name a new or an empty folder, or one that holds a theme";
  std::vector<std::string> names = AllNames();
  names.insert(names.end(), {kItemsFile, kTargetFile, "bg.bmp", "pS.bmp", "pM.bmp"});
  for (const std::string& name : names) {
    const fs::file_status status = fs::symlink_status(PathOf(JoinPath(folder, name)), error);
    if (fs::exists(status) && !fs::is_regular_file(status))
      return JoinPath(folder, name) + " is in the way: it is not a plain file";
  }
  return "";
}

void WriteTheme(const std::string& folder, const MadeTheme& theme) {
  SaveFiles(folder, theme.files);
  for (const std::string& name : AllNames())
    if (!theme.files.contains(name)) RemoveFile(FindFile(folder, name));
  const std::string highScores = FindFile(folder, kHighScoresFile);
  if (!PathExists(highScores)) SaveFile(highScores, DefaultHighScoreText());
}

PictureAndMask Separated(const Bitmap& rgba, int threshold) {
  constexpr Pixel nearlyWhite = 0xFFFEFEFE;
  PictureAndMask made{Bitmap(rgba.Extent(), kWhite), Bitmap(rgba.Extent(), kWhite)};
  for (int y = 0; y < rgba.Height(); ++y) {
    for (int x = 0; x < rgba.Width(); ++x) {
      const Pixel pixel = rgba.At(x, y);
      if (pixel >> 24 < static_cast<Pixel>(threshold)) continue;
      const Pixel color = kBlack | pixel;
      made.picture.Row(y)[x] = color == kWhite ? nearlyWhite : color;
      made.mask.Row(y)[x] = kBlack;
    }
  }
  return made;
}

std::string DetailsText(const std::string& description, const std::string& date) {
  return '"' + FieldText(description) + "\",\"" + FieldText(date) + "\"\r\n";
}

}  // namespace sorvex
