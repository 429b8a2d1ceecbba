// SPDX-License-Identifier: MIT
// One bad source for every fault, and a theme that is made, pixel by pixel and byte by byte.
#include "kit/make.h"

#include <gtest/gtest.h>

#include "kit/command.h"
#include "kit/report.h"
#include "kit/starter.h"
#include "platform/decode_rgba.h"
#include "platform/encode_png.h"
#include "support/temp_folder.h"
#include "support/wave_file.h"
#include "themes/theme_files.h"

namespace sorvex {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

constexpr Pixel kRed = 0xFFFF0000;

const std::string kToml =
    "background = 'bg.png'\n"  // line 1
    "[target]\n"
    "picture = 'target.png'\n"
    "at = [90, 5]\n"
    "[sounds]\n"  // 5
    "hit = 'hit.wav'\n"
    "[defaults]\n"
    "container = 'cup.png'\n"
    "[[item]]\n"
    "picture = 'item.png'\n"  // 10
    "container_at = [2, 3]\n"
    "[[item]]\n"
    "picture = 'item.png'\n"
    "container_at = [50, 3]\n"
    "at = [60, 20]\n";  // 15

// A PNG file that declares `side` x `side` pixels and holds one.
std::string Declaring(std::uint32_t side) {
  std::string png = EncodePng(Bitmap({1, 1}));
  for (std::size_t i = 0; i < 8; ++i) png[16 + i] = static_cast<char>(side >> (8 * (3 - i % 4)));
  std::uint32_t check = 0xFFFFFFFF;  // CRC-32 of the first chunk
  for (std::size_t i = 12; i < 29; ++i) {
    check ^= static_cast<unsigned char>(png[i]);
    for (int bit = 0; bit < 8; ++bit) check = check >> 1 ^ (check % 2 != 0 ? 0xEDB88320 : 0);
  }
  for (std::size_t i = 0; i < 4; ++i) png[29 + i] = static_cast<char>(~check >> (8 * (3 - i)));
  return png;
}

void WriteSource(const fs::path& folder, const std::string& toml) {
  WriteFile(folder / "theme.toml", toml);
  WriteFile(folder / "bg.png", EncodePng(Bitmap({140, 60}, 0x80102030)));
  WriteFile(folder / "target.png", EncodePng(Bitmap({30, 20}, kRed)));
  WriteFile(folder / "item.png", EncodePng(Bitmap({6, 8}, kRed)));
  Bitmap cup({20, 30}, 0x00FFFFFF);
  WriteFile(folder / "clear.png", EncodePng(cup));
  cup.Row(29)[0] = kRed;
  WriteFile(folder / "cup.png", EncodePng(cup));
  WriteFile(folder / "hit.wav", WaveFile().With("1234"));
  WriteFile(folder / "bomb.png", Declaring(100'000));
  WriteFile(folder / "4000.png", Declaring(4'000));
  WriteFile(folder / "song.mp3", "ID3");
}

MadeTheme MadeFrom(const fs::path& folder, Findings& findings) {
  return MakeTheme(ReadSource(folder.string(), findings), findings);
}

// `text` with the first `from` in another's place.
std::string With(std::string text, const std::string& from, const std::string& to) {
  return text.replace(text.find(from), from.size(), to);
}

struct FaultySource {
  const char* from;  // of kToml
  std::string to;
  std::vector<std::string> findings;  // how their lines begin, after "theme.toml"
};

// clang-format off
const FaultySource kFaultySources[] = {
    {"[target]", "[target", {":2: error: Error while parsing table header"}},
    {"[target]", "[\ntarget]", {":2: error: Error while parsing key: expected bare key"}},
    {"bg.png", "\xFF", {":1: error: "}},
    {"background", "backround",
     {": error: the key 'background' is missing [source-key]", ":1: error: unknown key 'backround'; known are description"}},
    {"at = [90", "to = [90", {":2: error: [target]: the key 'at' is missing", ":4: error: [target]: unknown key 'to'"}},
    {"container_at = [2", "at = [2", {":9: error: [[item]]: the key 'container_at' is missing"}},
    {"container = 'cup.png'", "", {":9: error: [[item]]: the key 'container' is missing", ":12: error: [[item]]: the key"}},
    {"hit =", "hits =", {":6: error: [sounds]: unknown key 'hits'; known are pickup, let_go, hit, put_in [source-key]"}},
    {"'bg.png'", "5", {":1: error: 'background' must be a text in double quotes [source-value]"}},
    {"[90, 5]", "[90, 5.5]", {":4: error: 'at': a whole number from -32768 to 32767 is expected"}},
    {"[90, 5]", "[40000, 5]", {":4: error: 'at': a whole number"}},
    {"'item.png'", "'clear.png'", {":10: error: clear.png: nothing of it can be seen"}},
    {"[90, 5]", "90", {":4: error: 'at' must be a place: [x, y]"}},
    {"[60, 20]", "'outside'", {":15: error: 'at' must be a place, [x, y], or \"in its container\""}},
    {"[2, 3]", "[2, 32760]", {":11: error: the item's rest place"}},
    {"[target]", "threshold = 256\n[target]", {":2: error: 'threshold': a whole number from 1 to 255"}},
    {"[[item]]\npicture = 'item.png'\ncontainer_at = [2, 3]\n[[item]]", "[item]",
     {":9: error: 'item' must be a list of tables: [[item]]"}},
    {"hit.wav", "/hit.wav", {":6: error: '/hit.wav' is not relative"}},
    {"hit.wav", "C:/hit.wav", {":6: error: 'C:/hit.wav' is not relative"}},
    {"hit.wav", "a\\b.wav", {":6: error: 'a\\b.wav' has a backslash"}},
    {"hit.wav", "none.wav", {":6: error: none.wav: not found, or not a file that can be opened [source-sound]"}},
    {"hit.wav", "song.mp3", {":6: error: song.mp3: this is an MP3 sound; a wave file of uncompressed sound"}},
    {"target.png", "none.png", {":3: error: none.png: not found, or not a file that can be opened [source-picture]"}},
    {"target.png", "song.mp3", {":3: error: song.mp3 (an MP3 sound): cannot be read as a picture; save it again as PNG"}},
    {"target.png", "bomb.png", {":3: error: bomb.png (a PNG picture): 100000 x 100000 pixels are too many: the "}},
    {"target.png", "4000.png", {":3: error: 4000.png (a PNG picture): 4000 x 4000 pixels are too many: the "}},
    // All at once, in the order of lines
    {"'bg.png'\n[target]\npicture = 'target.png'", "'a.png'\n[target]\npicture = 'b.png'\ncolour = 1",
     {":1: error: a.png: not found", ":3: error: b.png: not found", ":4: error: [target]: unknown key 'colour'"}},
};
// clang-format on

TEST(AFaultySource, IsToldItsFaults) {
  const std::string guide = ReadWholeFile(SORVEX_SOURCE_FOLDER "/docs/themes.md");
  for (const FaultySource& example : kFaultySources) {
    SCOPED_TRACE(example.to);
    const TempFolder folder;
    WriteSource(folder.Path(), With(kToml, example.from, example.to));
    Findings findings;
    MadeFrom(folder.Path(), findings);
    std::vector<std::string> lines;
    for (const Finding& finding : findings) {
      lines.push_back(AsLines({"", {finding}, {}}, false));
      EXPECT_NE(guide.find("\n| `" + std::string(finding.code) + "` |"), guide.npos) << finding.code;
    }
    ASSERT_EQ(lines.size(), example.findings.size()) << testing::PrintToString(lines);
    for (std::size_t i = 0; i < lines.size(); ++i)
      EXPECT_TRUE(lines[i].starts_with("theme.toml" + example.findings[i])) << lines[i];
  }
}

TEST(Making, TakesNothingElsesPlace) {
  const TempFolder folder;
  const auto path = [&](const char* name) { return (folder.Path() / name).string(); };
  WriteSource(folder.Path() / "source", kToml);
  WriteFile(path("photos/bg.bmp"), "a photo");
  WriteFile(path("file"), "");
  fs::create_directories(path("odd/bg.bmp"));
  WriteFile(path("odd/Theme.ini"), "");
  fs::create_directories(path("new/art"));
  WriteSource(folder.Path() / "new/art", With(kToml, "bg.png", "../bg.png"));
  Findings findings;
  const ThemeSource source = ReadSource(path("source"), findings);
  for (const char* taken : {"source", "photos", "file", "odd"})
    EXPECT_TRUE(WhyNotInto(path(taken), source).starts_with(path(taken))) << taken;
  EXPECT_EQ(WhyNotInto(path("new"), source), "");
  EXPECT_NE(WhyNotInto(path("new"), ReadSource(path("new/art"), findings)), "") << "it holds a picture of the source";
  EXPECT_TRUE(findings.empty());
}

TEST(Making, SeparatesOpaqueFromTransparent) {
  const struct {
    Pixel rgba, picture, mask;
  } pixels[] = {{0x00FFFFFF, kWhite, kWhite},
                {0x7FFF0000, kWhite, kWhite},
                {0x80FF0000, kRed, kBlack},  // without the background's color in it
                {kRed, kRed, kBlack},
                {kWhite, 0xFFFEFEFE, kBlack},
                {0xC0FFFFFF, 0xFFFEFEFE, kBlack},
                {kBlack, kBlack, kBlack}};
  Bitmap drawn({static_cast<int>(std::size(pixels)), 1});
  std::ranges::transform(pixels, drawn.Row(0), [](const auto& pixel) { return pixel.rgba; });
  const PictureAndMask made = Separated(DecodeRgba(EncodePng(drawn), 100), 128);
  for (int x = 0; x < drawn.Width(); ++x) {
    EXPECT_EQ(made.picture.At(x, 0), pixels[x].picture) << x;
    EXPECT_EQ(made.mask.At(x, 0), pixels[x].mask) << x;
  }
}

TEST(Making, DrawsSvgWhereItCan) {
  constexpr char svg[] =
      "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='7'><circle cx='4.3' cy='3.4' r='3.2' "
      "fill='red'/></svg>";
  try {
    const PictureAndMask made = Separated(DecodeRgba(svg, 100), 1);
    EXPECT_EQ(made.picture.Extent(), (Size{9, 7}));
    EXPECT_EQ(made.mask.At(4, 3), kBlack);
    EXPECT_EQ(made.mask.At(0, 0), kWhite);
    const Bitmap picture = Separated(DecodeRgba(svg, 100), 128).picture;
    for (const Pixel pixel : picture.Pixels()) EXPECT_TRUE(pixel == kRed || pixel == kWhite) << std::hex << pixel;
    EXPECT_THROW(DecodeRgba(svg, 60), PictureError);
  } catch (const PictureError& error) {
    EXPECT_STREQ(error.what(), "SVG pictures can be read on Linux only; save it as PNG");
  }
}

TEST(Making, GivesWhatTheGameReads) {
  const TempFolder folder;
  WriteSource(folder.Path() / "source", kToml);
  const fs::path path = folder.Path() / "Made";
  WriteFile(path / "HighScores.ini", "mine");
  WriteFile(path / "ss7.bmp", "of an earlier one");
  Findings findings;
  const MadeTheme made = MadeFrom(folder.Path() / "source", findings);
  ASSERT_TRUE(findings.empty()) << AsLines({"", findings, {}}, false);
  EXPECT_EQ(MadeFrom(folder.Path() / "source", findings).files, made.files);
  WriteTheme(path.string(), made);
  EXPECT_EQ(ReadWholeFile(path / "HighScores.ini"), "mine");
  EXPECT_FALSE(fs::exists(path / "ss7.bmp"));
  EXPECT_EQ(ReadWholeFile(path / "HitTube.wav"), WaveFile().With("1234"));
  EXPECT_EQ(ReadWholeFile(path / "Theme.ini"), "7\r\n20\r\n2\r\n3\r\n60\r\n20\r\n50\r\n3\r\n");
  const Theme theme = ReadTheme(path.string());
  EXPECT_EQ(theme.background->Pixels(), Bitmap({140, 60}, 0xFF878F97)) << "laid over white";
  EXPECT_EQ(theme.targetMask->Pixels(), Bitmap({30, 20}));
  EXPECT_EQ(theme.pictures[1].item->Pixels(), Bitmap({6, 8}, kRed));
  Bitmap cup({20, 30}, kWhite);
  cup.Row(29)[0] = kBlack;
  EXPECT_EQ(theme.pictures[1].containerMask->Pixels(), cup);
}

TEST(Making, QuotesTheDetails) {
  const Details details = ParseDetails(DetailsText("Say \"cheese\", please\nand \u00E9", "1/2/26, noon"));
  EXPECT_EQ(details.description, "Say \u201Ccheese\u201D, please\r\nand \u00E9");
  EXPECT_EQ(details.date, "1/2/26, noon");
}

TEST(ANewSource, MakesAThemeWithoutAFinding) {
  const TempFolder folder;
  const std::string source = (folder.Path() / "a new").string();
  const std::string theme = (folder.Path() / "Themes" / "T").string();
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  EXPECT_EQ(RunThemeCommand({"new", source}), 0);
  EXPECT_EQ(RunThemeCommand({"new", source}), 2) << "there is one";
  EXPECT_EQ(RunThemeCommand({"make", source, "-o", theme}), 0);
  EXPECT_EQ(RunThemeCommand({"make", source + "/theme.toml", "-o", source}), 2) << "over itself";
  fs::remove(theme + "/HighScores.ini");
  EXPECT_EQ(RunThemeCommand({"make", source + "/theme.toml", "-o", theme}), 0);
  EXPECT_TRUE(fs::exists(theme + "/HighScores.ini"));
  const std::string toml = StarterSource().at("theme.toml");
  WriteFile(source + "/theme.toml", With(toml, "[222, 186]", "[2222, 186]"));
  EXPECT_EQ(RunThemeCommand({"make", source, "-o", theme}), 1) << "no pointer reaches the target";
  WriteFile(source + "/theme.toml", With(toml, "star.png", "none.png"));
  EXPECT_EQ(RunThemeCommand({"make", source, "-o", theme}), 2);
  testing::internal::GetCapturedStdout();
  testing::internal::GetCapturedStderr();
}

}  // namespace
}  // namespace sorvex
