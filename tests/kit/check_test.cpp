// SPDX-License-Identifier: MIT
// One bad theme for every finding, sound ones of many forms, and the themes that ship.
#include "kit/check.h"

#include <gtest/gtest.h>

#include <functional>
#include <regex>
#include <set>

#include "kit/report.h"
#include "support/temp_folder.h"
#include "support/theme_folder.h"
#include "support/wave_file.h"

namespace sorvex {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

using Design = std::function<void(TestTheme&)>;
using Spoil = std::function<void(const fs::path&)>;

// Two items at rest in cups, with all that a theme may have.
TestTheme SoundTheme() { return CupTheme(2, "T"); }

// What is found when the sound theme is designed otherwise, written, and its files are spoilt. Each line begins with
// the file's name.
std::vector<std::string> FoundIn(const Design& design, const Spoil& spoil) {
  const TempFolder folder;
  TestTheme theme = SoundTheme();
  if (design) design(theme);
  WriteTheme(folder.Path(), theme);
  const fs::path path = folder.Path() / theme.name;
  for (const char* sound : {"Pickup.wav", "LetGo.wav", "HitTube.wav", "PutInCont.wav"})
    WriteFile(path / sound, WaveFile().With("1234"));
  if (spoil) spoil(path);
  std::vector<std::string> lines;
  for (const Finding& finding : CheckTheme(path.string()).findings)
    lines.push_back(AsLines({"", {finding}, {}}, false));
  return lines;
}

Spoil Text(const char* file, const std::string& text) {
  return [=](const fs::path& theme) { WriteFile(theme / file, text); };
}
Spoil Pixels(const char* file, const Bitmap& bitmap) { return Text(file, BmpBytes(bitmap)); }
Spoil Both(const Spoil& one, const Spoil& other) {
  return [=](const fs::path& theme) { one(theme), other(theme); };
}
Spoil Without(const char* file) {
  return [=](const fs::path& theme) { fs::remove(theme / file); };
}
Bitmap WithPixel(Bitmap bitmap, int x, int y, Pixel pixel) {
  bitmap.Row(y)[x] = pixel;
  return bitmap;
}
Bitmap Inverted(Bitmap bitmap) {
  std::for_each_n(bitmap.Row(0), bitmap.Pixels().size(), [](Pixel& pixel) { pixel ^= 0xFFFFFF; });
  return bitmap;
}

// A box that is closed all round.
Bitmap Ring(Size size, int wall) {
  Bitmap mask = CupMask(size, wall);
  std::fill_n(mask.Row(0), size.width * wall, kBlack);
  return mask;
}

void Grid(TestTheme& theme, int count) {
  theme.items.clear();
  for (int i = 0; i < count; ++i) {
    TestItem item{.x = 0, .y = 0, .contX = 4 + 44 * (i % 7), .contY = 4 + 62 * (i / 7)};
    item.x = item.RestX();
    item.y = item.RestY();
    theme.items.push_back(item);
  }
}

constexpr Size kTarget{40, 30};
const std::string kPlaces = "25\r\n63\r\n20\r\n20\r\n85\r\n63\r\n80\r\n20\r\n";

struct FaultyTheme {
  const char* code;
  const char* line;  // how the line of the finding begins
  Spoil spoil;
  Design design = {};
  bool alone = true;  // nothing else is found
};

// clang-format off
const FaultyTheme kFaultyThemes[] = {
    {"missing-file", "cm1.bmp: error: not found", Without("cm1.bmp")},
    {"ambiguous-name", "ss0.bmp: error: not found, and of SS0.bmp and Ss0.bmp the game takes none",
     Both(Without("ss0.bmp"), Both(Text("SS0.bmp", ""), Text("Ss0.bmp", "")))},
    {"not-a-bitmap", "bg.bmp: error: this is a PNG picture", Text("bg.bmp", "\x89PNG\r\n")},
    {"not-a-bitmap", "ss1.bmp: error: this is a JPEG picture", Text("ss1.bmp", "\xFF\xD8\xFF\xE0")},
    {"broken-bitmap", "pM.bmp: error: cut off: its header says 40 x 30 pixels, and the file ends after 100 bytes",
     [](const fs::path& theme) { fs::resize_file(theme / "pM.bmp", 100); }},
    {"too-many-pixels", "bg.bmp: error: the pictures of a theme may have 16 million pixels", [](const fs::path& theme) {
       std::string header = BmpBytes(Bitmap({4000, 1})).substr(0, 54);
       WriteFile(theme / "bg.bmp", header.replace(22, 4, header.substr(18, 4)));
       fs::resize_file(theme / "bg.bmp", 54 + 3 * 4000 * 4000);
     }},
    {"text-too-long", "Theme2.ini: error: ", Text("Theme2.ini", std::string(70000, ' '))},
    {"utf-16", "Theme.ini: error: text in UTF-16", Text("Theme.ini", "\xFF\xFE"s + "1\0\r\0\n\0"s)},
    {"utf-16", "HighScores.ini: warning: text in UTF-16", Text("HighScores.ini", "\xFF\xFE"s + "A\0"s)},
    {"not-a-number", "Theme.ini:2: error: 'abc' is not a number", Text("Theme.ini", "25\nabc\n20\n20\n")},
    {"number-range", "Theme.ini:1: error: '40000' is not between", Text("Theme.ini", "40000\n63\n20\n20\n")},
    {"blank-line", "Theme.ini:9: error: a blank line", Text("Theme.ini", kPlaces + "\r\n")},
    {"item-cut-short", "Theme.ini:10: error: the last item has 2 of its 4", Text("Theme.ini", kPlaces + "1\r\n2\r\n")},
    {"too-many-items", "Theme.ini:85: error: a theme has at most 21", {}, [](auto& theme) { Grid(theme, 22); }},
    {"target-cut-short", "Theme2.ini: error: fewer than two numbers", Text("Theme2.ini", "250\r\n")},
    {"no-items", "Theme.ini: error: empty", Text("Theme.ini", "")},
    {"no-black-pixel", "sm0.bmp: error: no pixel is exactly black",
     Both(Pixels("sm0.bmp", Bitmap({14, 12}, kWhite)), Pixels("ss0.bmp", Bitmap({14, 12}, kWhite)))},
    {"item-touches-container", "Theme.ini:3: error: item 0 comes to rest at (25, 63) and touches its container there: "
     "wall or border is 3 pixels too thick, and the game then answers no pointer",
     Both(Pixels("cm0.bmp", CupMask({40, 60}, 8)), Pixels("cs0.bmp", Colored(CupMask({40, 60}, 8), 0xFF0000C0)))},
    {"item-touches-container", "Theme.ini:1: error: item 0 starts at (20, 63) and touches its container there: wall or "
     "border is 1 pixel too thick", {}, [](auto& theme) { theme.items[0].x -= 5; }},
    {"item-over-target", "Theme.ini:3: error: item 0 comes to rest at (25, 63) with its center over the target",
     {}, [](auto& theme) { theme.targetX = 20, theme.targetY = 60; }},
    {"item-over-target", "Theme.ini:1: error: item 0 starts at (260, 190) with its center over the target",
     {}, [](auto& theme) { theme.items[0].x = 260, theme.items[0].y = 190; }},
    {"rest-outside-field", "Theme.ini:3: error: item 0 comes to rest at (-1, 63), outside the field of 316 x 236",
     {}, [](auto& theme) { theme.items[0].contX = -6, theme.items[0].x = -1; }, false},
    {"too-far-apart", "Theme.ini:1: error: item 0, its cont", {}, [](auto& theme) { theme.items[0].x = -32768; }},
    {"mask-not-pure", "sm0.bmp: warning: 1 pixel, at (5, 7), neither black #000000 nor white #FFFFFF but #808080",
     Both(Pixels("sm0.bmp", WithPixel(Bitmap({14, 12}), 5, 7, 0xFF808080)), Pixels("ss0.bmp", Bitmap({14, 12})))},
    {"mask-size", "pM.bmp: warning: 40 x 20 pixels, but its picture pS.bmp has 40 x 30",
     Both(Pixels("pM.bmp", Bitmap({40, 20})), Pixels("pS.bmp", Bitmap({40, 30})))},
    {"mask-inverted", "pM.bmp: warning: black and white are exch", Pixels("pM.bmp", Inverted(CupMask(kTarget)))},
    {"picture-not-white", "pS.bmp: warning: 918 pixels, the first at (3, 0), not white but #00C000 where pM.bmp",
     Pixels("pS.bmp", Bitmap(kTarget, 0xFF00C000))},
    {"opaque-over-nothing", "pM.bmp: warning: 918 pixels, the first at (3, 0), black where pS.bmp shows nothing",
     Pixels("pM.bmp", Bitmap(kTarget))},
    {"outside-field", "Theme.ini:7: warning: container 1 at (290, 20) reaches outside the field of 316 x 236 pixels, 14",
     {}, [](auto& theme) { theme.items[1].contX = 290, theme.items[1].x = 295; }},
    {"outside-field", "Theme2.ini: warning: the target at (400, 180) lies outside the field",
     {}, [](auto& theme) { theme.targetX = 400; }, false},
    {"item-covered", "Theme.ini:5: warning: where item 1 starts, at (25, 63), a press on 132 of its 132 pixels picks up "
     "item 0", {}, [](auto& theme) { theme.items[1].x = 25; }},
    {"container-covered", "Theme.ini:7: warning: container 1 can never be chosen: it lies under container 0",
     {}, [](auto& theme) {
       theme.items[0].contSize = {100, 120}, theme.items[0].y += 60;
       theme.items[1].contX = 40, theme.items[1].x = 45;
     }},
    {"target-extra-values", "Theme2.ini:1: warning: 3 values; the game reads the first two, '250' and '18'",
     Text("Theme2.ini", "250,18,5")},
    {"details-cut", "ThemeDetails.ini:1: warning: the description ends at 'Glass' and the date reads 'brass and steel'",
     Text("ThemeDetails.ini", "Glass, brass and steel\r\nMay 2026\r\n")},
    {"details-cut", "ThemeDetails.ini:1: warning: ", Text("ThemeDetails.ini", "Glass, brass")},
    {"no-way", "Theme.ini:1: error: item 0 starts at (25, 63) and has no way without jumping to the target: the walls close "
     "at (25, ", Both(Pixels("cm0.bmp", Ring({40, 60}, 3)), Pixels("cs0.bmp", Colored(Ring({40, 60}, 3), 0xFF0000C0)))},
    {"way-leaves-field", "Theme.ini:1: warning: item 0 starts at (25, 63) and reaches the target only with the pointer ",
     {}, [](auto& theme) { theme.targetX = 400; }, false},
    {"target-out-of-reach", "Theme.ini:1: error: item 0 starts at (25, 63), and no pointer on or near the field can",
     {}, [](auto& theme) { theme.targetX = 3000; }, false},
    {"cannot-be-held", "Theme.ini:1: error: item 0 starts at (400, 63), where no black pixel of its mask lies inside",
     {}, [](auto& theme) { theme.items[0].x = 400; }, false},
    {"missing-sound", "LetGo.wav: warning: not found; the desktop's bell", Without("LetGo.wav")},
    {"bad-sound", "LetGo.wav: warning: this is an MP3 sound", Text("LetGo.wav", "ID3\x03")},
    {"no-high-scores", "HighScores.ini: warning: not found", Without("HighScores.ini")},
    {"field-too-high", "bg.bmp: warning: 253 pixels high: it covers the folder image, by which another theme is chosen; "
     "at most 252 pixels", {}, [](auto& theme) { theme.field.height = 253; }},
    {"field-too-low", "bg.bmp: warning: 229 pixels high: ", {}, [](auto& theme) { theme.field.height = 229; }},
    {"field-too-narrow", "bg.bmp: warning: 295 pixels wide: ", {}, [](auto& theme) { theme.field.width = 295; }},
    {"field-too-large", "bg.bmp: warning: 1367 x 236 pixels", {}, [](auto& theme) { theme.field.width = 1367; }},
};
// clang-format on

TEST(AFaultyTheme, IsToldItsFault) {
  const TempFolder folder;
  WriteFile(folder.Path() / "a", "");
  const bool caseMatters = !fs::exists(folder.Path() / "A");
  for (const FaultyTheme& example : kFaultyThemes) {
    if (!caseMatters && example.code == "ambiguous-name"s) continue;
    const std::vector<std::string> lines = FoundIn(example.design, example.spoil);
    const std::string ending = " ["s + example.code + "]\n";
    const auto isIt = [&](const std::string& line) { return line.starts_with(example.line) && line.ends_with(ending); };
    EXPECT_EQ(std::ranges::count_if(lines, isIt), 1) << example.code << ": " << testing::PrintToString(lines);
    EXPECT_TRUE(lines.size() == 1 || !example.alone) << example.code << ": " << testing::PrintToString(lines);
  }
}

TEST(EveryFinding, StandsInTheGuide) {
  std::string guide = ReadWholeFile(SORVEX_SOURCE_FOLDER "/docs/themes.md");
  guide.erase(0, guide.find("\nIn a theme:\n"));
  std::set<std::string> told;
  const std::regex row("\\n\\| `([a-z0-9-]+)` \\|");
  for (auto match = std::sregex_iterator(guide.begin(), guide.end(), row); match != std::sregex_iterator(); ++match)
    told.insert((*match)[1]);
  std::set<std::string> shown;
  for (const FaultyTheme& example : kFaultyThemes) shown.insert(example.code);
  EXPECT_EQ(told, shown);
}

TEST(ASoundTheme, HasNoFinding) {
  const std::pair<const char*, Spoil> forms[] = {
      {"as it is", {}},
      {"white inside", Pixels("pS.bmp", WithPixel(Colored(CupMask(kTarget), 0xFF00C000), 1, 9, kWhite))},
      {"names in capitals",
       [](const fs::path& theme) {
         for (const auto& [name, capitals] : {std::pair{"bg.bmp", "BG.BMP"}, {"LetGo.wav", "LETGO.WAV"}})
           fs::rename(theme / name, theme / capitals);
       }},
      {"a mark of byte order", Text("Theme.ini", "\xEF\xBB\xBF" + kPlaces)},
      {"lines that end with CR", Text("Theme.ini", std::regex_replace(kPlaces, std::regex("\n"), ""))},
      {"fields on two lines", Text("Theme2.ini", "250\n180\n")},
      {"quoted details", Text("ThemeDetails.ini", "\"Glass, brass\",\"May, 2026\"\r\n")},
      {"details on one line", Text("ThemeDetails.ini", "Glass,May 2026")},
      {"details on two lines", Text("ThemeDetails.ini", "Glass\rSpring\r")},
  };
  for (const auto& [what, spoil] : forms) EXPECT_EQ(FoundIn({}, spoil), std::vector<std::string>()) << what;
  for (const auto& shipped : fs::directory_iterator(SORVEX_SOURCE_FOLDER "/themes")) {
    if (!shipped.is_directory()) continue;
    EXPECT_EQ(AsLines(CheckTheme(shipped.path().string()), false), "");
  }
}

TEST(Findings, AreToldToProgramsToo) {
  const Finding pixel{Severity::Warning, "mask-not-pure", "sm0.bmp", 0, Place{5, 7}, "a \"gray\"\n"};
  const Finding line{Severity::Error, "blank-line", "Theme.ini", 9, std::nullopt, "é"};
  EXPECT_EQ(AsJson(std::vector<CheckedTheme>{{"A\\B", {pixel}, {}}, {"C", {line}, {}}}),
            "[\n  {\"theme\": \"A\\\\B\", \"file\": \"sm0.bmp\", \"x\": 5, \"y\": 7, \"severity\": \"warning\", "
            "\"code\": \"mask-not-pure\", \"message\": \"a \\\"gray\\\"\\u000A\"},\n"
            "  {\"theme\": \"C\", \"file\": \"Theme.ini\", \"line\": 9, \"severity\": \"error\", "
            "\"code\": \"blank-line\", \"message\": \"é\"}\n]\n");
  EXPECT_EQ(AsLines({"", {line}, {}}, true), "\x1B[1mTheme.ini:9\x1B[0m: \x1B[1;31merror\x1B[0m: é [blank-line]\n");
  EXPECT_EQ(Summary({"T", {pixel, line, pixel}, {}}), "T: 1 error, 2 warnings\n");
}

}  // namespace
}  // namespace sorvex
