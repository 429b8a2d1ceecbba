// SPDX-License-Identifier: MIT
// Writing theme folders of plain shapes.
#include "support/theme_folder.h"

#include "support/temp_folder.h"
#include "support/wave_file.h"

namespace sorvex {
namespace {

namespace fs = std::filesystem;

Bitmap ItemMask(const TestItem& item) {
  Bitmap mask(item.size, kBlack);
  for (int y = 0; y < item.size.height; ++y)
    for (int x = 0; x < item.clear; ++x) mask.Row(y)[x] = kWhite;
  return mask;
}

// No two pixels near each other are alike, so that a picture drawn one pixel off shows.
Bitmap Background(Size size) {
  Bitmap pattern(size);
  for (int y = 0; y < size.height; ++y)
    for (int x = 0; x < size.width; ++x)
      pattern.Row(y)[x] = kBlack | static_cast<Pixel>((x * 7 & 0x7F) << 16 | (y * 5 & 0x7F) << 8 | ((x + y) & 0x7F));
  return pattern;
}

void WritePair(const fs::path& folder, const std::string& picture, const std::string& mask, const Bitmap& shape,
               Pixel color) {
  WriteFile(folder / picture, BmpBytes(Colored(shape, color)));
  WriteFile(folder / mask, BmpBytes(shape));
}

}  // namespace

std::string BmpBytes(const Bitmap& bitmap) {
  const auto width = static_cast<std::uint32_t>(bitmap.Width());
  const auto height = static_cast<std::uint32_t>(bitmap.Height());
  const std::uint32_t stride = (width * 3 + 3) / 4 * 4;
  std::string bytes = "BM";
  for (const std::uint32_t field : {54 + stride * height, 0U, 54U, 40U, width, height}) bytes += LittleEndian(field, 4);
  bytes += LittleEndian(1, 2) + LittleEndian(24, 2) + std::string(24, '\0');
  for (int y = bitmap.Height() - 1; y >= 0; --y) {
    for (int x = 0; x < bitmap.Width(); ++x) bytes += LittleEndian(bitmap.At(x, y), 3);
    bytes.append(stride - width * 3, '\0');
  }
  return bytes;
}

Bitmap CupMask(Size size, int wall) {
  Bitmap mask(size, kBlack);
  for (int y = 0; y < size.height - wall; ++y)
    for (int x = wall; x < size.width - wall; ++x) mask.Row(y)[x] = kWhite;
  return mask;
}

Bitmap Colored(const Bitmap& mask, Pixel color) {
  Bitmap picture(mask.Extent(), kWhite);
  for (int y = 0; y < mask.Height(); ++y)
    for (int x = 0; x < mask.Width(); ++x)
      if (mask.At(x, y) == kBlack) picture.Row(y)[x] = color;
  return picture;
}

std::string HighScoreFile(const std::vector<std::string>& times) {
  std::string text;
  for (std::size_t row = 0; row < 10; ++row) {
    const bool kept = row < times.size();
    text += kept ? "\"P" + std::to_string(row) + "\"\r\n\"01/02/03\"\r\n\"" + times[row] + "\"\r\n"
                 : "\"Nobody\"\r\n\"00/00/00\"\r\n\"100\"\r\n";
  }
  return text;
}

TestTheme CupTheme(int count, const std::string& name) {
  TestTheme theme;
  theme.name = name;
  for (int i = 0; i < count; ++i) {
    TestItem item{.x = 0, .y = 0, .contX = 20 + 60 * i, .contY = 20};
    item.x = item.RestX();
    item.y = item.RestY();
    theme.items.push_back(item);
  }
  return theme;
}

void WriteTheme(const fs::path& programFolder, const TestTheme& theme) {
  const fs::path folder = programFolder / theme.name;
  std::string places;
  for (std::size_t i = 0; i < theme.items.size(); ++i) {
    const TestItem& item = theme.items[i];
    for (const int place : {item.x, item.y, item.contX, item.contY}) places += std::to_string(place) + "\r\n";
    const std::string n = std::to_string(i) + ".bmp";
    const auto shade = static_cast<Pixel>(i * 8);
    WritePair(folder, "ss" + n, "sm" + n, ItemMask(item), 0xFFC00000 + shade);
    WritePair(folder, "cs" + n, "cm" + n, CupMask(item.contSize), 0xFF0000C0 + shade);
  }
  WriteFile(folder / "Theme.ini", places);
  WriteFile(folder / "Theme2.ini", std::to_string(theme.targetX) + "," + std::to_string(theme.targetY) + "\r\n");
  WriteFile(folder / "bg.bmp", BmpBytes(Background(theme.field)));
  WritePair(folder, "pS.bmp", "pM.bmp", CupMask(theme.target), 0xFF00C000);
  if (!theme.highScores.empty()) WriteFile(folder / "HighScores.ini", theme.highScores);
}

}  // namespace sorvex
