// SPDX-License-Identifier: MIT
// The grammar of the three text files, and the bitmaps that are refused before a reader sees them.
#include "themes/theme_files.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "support/temp_folder.h"
#include "support/theme_folder.h"
#include "themes/bitmap_check.h"

namespace sorvex {
namespace {

using namespace std::string_literals;

std::string Refusal(const std::function<void()>& parse) {
  try {
    parse();
    return "accepted";
  } catch (const ThemeError& error) {
    return error.what();
  }
}

std::string Lines(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += std::to_string(i) + "\r\n";
  return text;
}

TEST(ThemeIni, GroupsOfFourLinesAreItems) {
  const ItemTable two = ParseItems("10\r\n20\r\n200\r\n20\r\n 10\t\r\n-120\r\n12.5\r\n13.5");
  EXPECT_EQ(two.LastItem, 1);
  EXPECT_EQ(two.ItemX(1), 10);
  EXPECT_EQ(two.ItemY(1), -120);
  EXPECT_EQ(two.ContX(1), 12);
  EXPECT_EQ(two.ContY(1), 14);
  EXPECT_TRUE(two.ItemInPlay(1) && two.ContInPlay(1));
  EXPECT_FALSE(two.ItemInPlay(2) || two.ContInPlay(2));
  EXPECT_THROW(two.ItemX(21), RuntimeError);
  EXPECT_EQ(ParseItems("").LastItem, -1);
  EXPECT_EQ(ParseItems("1\n2\n3\n4\n").LastItem, 0) << "LF alone ends a line";
  EXPECT_EQ(ParseItems(Lines(84)).LastItem, 20);
}

TEST(ThemeIni, SaysWhichLineCannotBeUsed) {
  const std::pair<std::string, std::string> cases[] = {
      {Lines(6) + "1e3\r\n8\r\n", "Theme.ini, line 7: '1e3' is not a number"},
      {"1\r\n\r\n3\r\n4\r\n", "Theme.ini, line 2: a blank line is not a number"},
      {"32768\r\n2\r\n3\r\n4\r\n", "Theme.ini, line 1: '32768' is not between -32768 and 32767"},
      {"1\r\n-32768.6\r\n3\r\n4\r\n", "Theme.ini, line 2: '-32768.6' is not between -32768 and 32767"},
      {Lines(7), "Theme.ini, line 7: the last item has 3 of its 4 lines"},
      {std::string(39, 'x') + "\u00EBy", "Theme.ini, line 1: '" + std::string(39, 'x') + "\u00EB...' is not a number"},
      {std::string(40, 'x') + "\u00EBy", "Theme.ini, line 1: '" + std::string(40, 'x') + "...' is not a number"},
      {Lines(85), "Theme.ini, line 85: a theme has at most 21 items"},
  };
  for (const auto& [text, reason] : cases) EXPECT_EQ(Refusal([&text = text] { ParseItems(text); }), reason);
}

TEST(Theme2Ini, HoldsTwoNumbers) {
  const std::tuple<const char*, int, int> cases[] = {
      {"\"250\",\"180\"", 250, 180}, {",180", 0, 180},   {"\r\n7", 0, 7},
      {"2.5, 3.5, more", 2, 4},      {"-5,\r\n", -5, 0}, {"1\r\n2\r\nabc", 1, 2}};
  for (const auto& [text, x, y] : cases) {
    const Target target = ParseTarget(text);
    EXPECT_EQ((std::pair<int, int>(target.x, target.y)), std::pair(x, y)) << text;
  }
  EXPECT_EQ(Refusal([] { ParseTarget("250"); }), "Theme2.ini: fewer than two numbers");
  EXPECT_EQ(Refusal([] { ParseTarget("1\rx"); }), "Theme2.ini, line 2: 'x' is not a number");
  EXPECT_EQ(Refusal([] { ParseTarget("40000,1"); }), "Theme2.ini, line 1: '40000' is not between -32768 and 32767");
}

TEST(BitmapCheck, RefusesSizesThatTheFileCannotHold) {
  const std::string good = BmpBytes(Bitmap({7, 5}, kWhite));
  const auto with = [&](std::size_t at, const std::string& bytes) {
    std::string changed = good;
    return changed.replace(at, bytes.size(), bytes);
  };
  EXPECT_TRUE(DeclaredSize(good));
  EXPECT_TRUE(DeclaredSize(with(22, "\xFB\xFF\xFF\xFF"))) << "rows from the top";
  const std::string shortHeader = "BM\0\0\0\0\0\0\0\0\x1A\0\0\0\x0C\0\0\0\x03\0\x02\0\x01\0\x18\0"s;
  EXPECT_TRUE(DeclaredSize(shortHeader + std::string(24, 'x')));
  EXPECT_TRUE(DeclaredSize(good.substr(0, good.size() - 3))) << "the last row's padding may be missing";
  const std::pair<const char*, std::string> cases[] = {
      {"empty", ""},
      {"another kind of file", "\x89PNG\r\n" + good.substr(6)},
      {"a short header, rows missing", shortHeader + std::string(20, 'x')},
      {"rows missing", good.substr(0, good.size() - 4)},
      {"60000 x 60000", with(18, "\x60\xEA\0\0\x60\xEA\0\0"s)},
      {"no width", with(18, "\0\0\0\0"s)},
      {"negative width", with(18, "\xFF\xFF\xFF\xFF")},
      {"lowest height", with(22, "\0\0\0\x80"s)},
      {"pixels beyond the end", with(10, "\xFF\xFF\0\0"s)},
      {"a header longer than the file", with(14, "\xFF\xFF\xFF\x7F")},
      {"a header of no known length", with(14, "\x7D\0\0\0"s)},
      {"more bits than any pixel has", with(28, "\x40\0"s)},
      {"pixels far into the file", with(10, "\1\0\x10\0"s) + std::string(1 << 20, 'x')},
      {"runs without an end", with(30, "\x01\0\0\0"s).substr(0, 60)},
  };
  for (const auto& [what, bytes] : cases) EXPECT_FALSE(DeclaredSize(bytes)) << what;
}

TEST(BitmapCheck, FollowsRunsToTheirEnd) {
  const std::tuple<char, std::string, bool> cases[] = {
      // 1: BI_RLE8, 2: BI_RLE4; whether they are whole
      {1, "\x03\x07\0\0\x03\x08\0\x01"s, true},  // run, end of line, run, end
      {1, "\x03\x07\0\0\x03\x08\0\0"s, true},    // every line ended, no end mark
      {1, "\x03\x07\0\0\x03\x08"s, false},
      {1, "\0\x03\x01\x02\x03\0\0\x01"s, true},  // three pixels as they are, padded
      {2, "\0\x05\x12\x34\x50\0\0\x01"s, true},  // five half-byte pixels, padded
      {1, "\0\x02\0\x01\x03\x07\0\0"s, true},    // a move down one line
      {1, "\x03\x01\x03\x01"s, false},           // a run's color is no code
  };
  for (const auto& [compression, data, whole] : cases) {
    std::string file = BmpBytes(Bitmap({3, 2})).substr(0, 54);
    file[28] = compression == 1 ? 8 : 4;
    file[30] = compression;
    file[46] = 1;  // color in the palette
    file += "\0\0\0\0"s;
    EXPECT_EQ(DeclaredSize(file + data).has_value(), whole) << testing::PrintToString(data);
  }
}

TEST(AThemesFiles, AreReadOnBehindAFault) {
  std::vector<int> lines;
  const auto note = [&](const Fault& fault) { lines.push_back(fault.line); };
  const ItemTable items = ParseItems("1\n2\n\n3\n4\nfive\n6\n7\n8\n9\n10\n11\n12\n\n", note);
  EXPECT_EQ(lines, (std::vector{3, 6, 14}));
  EXPECT_EQ(items.LastItem, 2);
  EXPECT_FALSE(items.ItemInPlay(0) || items.ItemInPlay(1)) << "they have not four numbers each";
  EXPECT_TRUE(items.ItemInPlay(2));
  EXPECT_EQ(items.ContY(2), 12);
}

TEST(AThemesFiles, AreReadWithinBounds) {
  const TempFolder folder;
  WriteTheme(folder.Path(), CupTheme(1));
  const std::filesystem::path theme = folder.Path() / "Theme1";
  // What stands behind the pixels is neither read nor counted.
  std::filesystem::resize_file(theme / "pM.bmp", std::uintmax_t{4} << 30);
  EXPECT_EQ(Refusal([&] { ReadTheme(theme.string()); }), "accepted");
  const auto refusal = [&](const char* file, const std::string& bytes) {
    const std::string before = ReadWholeFile(theme / file);
    WriteFile(theme / file, bytes);
    const std::string reason = Refusal([&] { ReadTheme(theme.string()); });
    WriteFile(theme / file, before);
    return reason;
  };
  EXPECT_EQ(refusal("Theme2.ini", "1,2\r\n" + std::string(64 << 10, ' ')),
            "Theme2.ini: cannot be read, or is longer than the 64 KiB that a text file of a theme may have");
  EXPECT_EQ(refusal("sm0.bmp", BmpBytes(Bitmap({14, 12})).substr(0, 100)), "sm0.bmp: not a bitmap that can be read")
      << "the check comes before the system's reader, which may take a file's word for its size";
  // Alone just under the bound, with the theme's other pictures over it.
  const std::string wide = BmpBytes(Bitmap({4000, 1}));
  std::string large = wide.substr(0, 54) + std::string(3 * 4000 * 4000, '\0');
  large.replace(22, 4, wide.substr(18, 4));
  EXPECT_EQ(refusal("bg.bmp", large), "bg.bmp: the pictures of a theme may have 16 million pixels in all");
}

}  // namespace
}  // namespace sorvex
