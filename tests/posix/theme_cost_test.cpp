// SPDX-License-Identifier: MIT
// What a theme may cost at most: memory while it is loaded and played at the bound of pixels, memory and time of one
// that is refused.
#include <gtest/gtest.h>

#include <ctime>
#include <fstream>
#include <iostream>

#include "base/files.h"
#include "base/limits.h"
#include "base/wave.h"
#include "posix/child.h"
#include "support/story.h"
#include "support/wave_file.h"
#include "themes/load_theme.h"

namespace sorvex {
namespace {

namespace fs = std::filesystem;

constexpr bool kMeasured = !SORVEX_SANITIZED;  // the sanitizers' memory and checks are no part of the game

// A header of 54 bytes that says what it likes.
std::string Header(int width, int height, std::uint32_t bits, std::uint32_t compression = 0, std::uint32_t offset = 54,
                   std::uint32_t colors = 0) {
  std::string header = "BM" + LittleEndian(0, 4) + LittleEndian(0, 4) + LittleEndian(offset, 4) + LittleEndian(40, 4);
  for (const int side : {width, height}) header += LittleEndian(static_cast<std::uint32_t>(side), 4);
  header += LittleEndian(1, 2) + LittleEndian(bits, 2) + LittleEndian(compression, 4) + std::string(12, '\0');
  return header + LittleEndian(colors, 4) + std::string(4, '\0');
}

// Writes `start`, `piece` again and again up to `bytes` bytes, and `end`.
void WriteRepeated(const fs::path& path, const std::string& start, const std::string& piece, std::size_t bytes,
                   const std::string& end = "") {
  std::ofstream file(path, std::ios::binary);
  file << start;
  for (std::size_t written = 0; written < bytes; written += piece.size()) file << piece;
  file << end;
}

// A file of `size` bytes, most of them a hole.
void WriteSparse(const fs::path& file, const std::string& start, std::uintmax_t size) {
  WriteFile(file, start);
  fs::resize_file(file, size);
}

long PeakMebibytes() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;)
    if (long kibibytes = 0; word == "VmHWM:" && status >> kibibytes) return kibibytes / 1024;
  return 0;
}

struct Cost {
  long peak;  // MiB
  double seconds;
  bool played;
};

double ProcessorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

// Of a process of its own that chooses the theme and plays two games on it; `seconds` of choosing it.
Cost CostOf(const std::function<void(const fs::path& folder)>& change, bool accepted) {
  const Shared<Cost> cost;
  Story story({CupTheme(2), CupTheme(2, "Costly")});
  change(story.ThemeFile("", "Costly"));
  const int status = InChild([&] {
    story.state.ThemeName = "Costly";
    const double begin = ProcessorSeconds();
    LoadTheme(story.program.game, "Costly");
    cost->seconds = ProcessorSeconds() - begin;
    story.Start().Frames(3).Start().Frames(3).Run();
    cost->peak = PeakMebibytes();
    cost->played = story.desktop.Boxes.empty() == accepted && story.desktop.FramesShown > 0;
    return 0;
  });
  return status == 0 ? *cost.operator->() : Cost{};
}

using Change = std::function<void(const fs::path& folder)>;

Change Sparse(const char* file, const std::string& start, std::uintmax_t size) {
  return [=](const fs::path& folder) { WriteSparse(folder / file, start, size); };
}
Change Text(const char* file, const std::string& piece, std::size_t bytes) {
  return [=](const fs::path& folder) { WriteRepeated(folder / file, "", piece, bytes); };
}

constexpr int kSide = 3990;  // 80,000 pixels are left for the other pictures
constexpr std::uintmax_t kPixels = std::uintmax_t{kSide} * kSide;

Change Background(std::uint32_t bits, std::uint32_t compression = 0) {
  return Sparse("bg.bmp", Header(kSide, kSide, bits, compression), 100'000 + kPixels * bits / 8);
}
Change Runs(std::size_t bytes, const std::string& end) {
  return [=](const fs::path& folder) {
    const std::string palette(1024, '\0');
    WriteRepeated(folder / "bg.bmp", Header(kSide, kSide, 8, 1, 1078) + palette, std::string("\1\0", 2), bytes, end);
  };
}
// All pictures but two are large.
void EnlargeMasks(const fs::path& folder) {
  for (const char* picture : {"sm0", "cm0", "sm1", "cm1", "pM", "bg"})
    WriteSparse(folder / (picture + std::string(".bmp")), Header(1600, 1600, 1), 2000 + 1600 * 200);
}
Change Both(const Change& first, const Change& second) {
  return [=](const fs::path& folder) { first(folder), second(folder); };
}
void RemoveTarget(const fs::path& folder) { fs::remove(folder / "pM.bmp"); }

TEST(AThemesCost, IsBoundedWhateverItsFilesSay) {
  constexpr bool kAccepted = true, kRefused = false;
  const std::string end("\0\1", 2);
  const std::tuple<const char*, Change, bool> cases[] = {
      {"32 bits", Background(32), kAccepted},
      {"8 bits", Background(8), kAccepted},
      {"runs", Runs(4 * kPixels, end), kAccepted},
      {"masks", EnlargeMasks, kAccepted},
      {"runs without an end", Runs(4 * kPixels, ""), kRefused},
      {"32 bits, one missing", Both(Background(32), RemoveTarget), kRefused},
      {"runs, one missing", Both(Runs(4 * kPixels, end), RemoveTarget), kRefused},
      {"8 bits, one cut", Both(Background(8), Sparse("pS.bmp", Header(9, 9, 24), 60)), kRefused},
      {"32 bits, one that the decoder refuses",
       Both(Background(32), Sparse("pS.bmp", Header(9, 9, 8, 0, 54, 99999), 5000)), kRefused},
      {"too many pixels", Both(Background(32), Sparse("pS.bmp", Header(1000, 1000, 1), 200'000)), kRefused},
      {"the largest sides", Sparse("bg.bmp", Header(32767, 32767, 32), 1000), kRefused},
      {"a palette far away", Sparse("bg.bmp", Header(9, 9, 8, 0, 0xFFFFFFFF), 1ULL << 36), kRefused},
      {"many gigabytes", Sparse("bg.bmp", "BM", 1ULL << 36), kRefused},
      {"many gigabytes of text", Sparse("Theme.ini", "1\r\n", 1ULL << 36), kRefused},
      {"one line", Text("Theme.ini", "1", 8 << 20), kRefused},
      {"one line within the bound", Text("Theme.ini", "1", kLongestText), kRefused},
      {"a million lines", Text("Theme2.ini", "1\r\n", 3'000'000), kRefused},
      {"thousands of items", Text("Theme.ini", "1\n", kLongestText), kRefused},
      {"many fields", Text("ThemeDetails.ini", ",", 100'000), kRefused},
      {"many fields within the bound", Text("HighScores.ini", ",", kLongestText), kAccepted},
  };
  for (const auto& [what, change, accepted] : cases) {
    const Cost cost = CostOf(change, accepted);
    std::cout << what << (accepted ? ": " : ", refused: ") << cost.peak << " MiB, " << cost.seconds << " s\n";
    EXPECT_TRUE(cost.played) << what;
    if (kMeasured) {
      EXPECT_LT(cost.peak, accepted ? 400 : 150) << what;
    }
    if (kMeasured && !accepted) {
      EXPECT_LT(cost.seconds, 0.2) << what;
    }
  }
}

TEST(ASoundsCost, IsBoundedWhateverItsFileSays) {
  const TempFolder folder;
  const std::tuple<const char*, Change, bool> cases[] = {
      {"gigabytes declared", Sparse("a.wav", WaveFile{.declared = 0xFFFFFFFF}.With(""), kLargestSound), true},
      {"too large", Sparse("a.wav", WaveFile{}.With(""), kLargestSound + 1), false}};
  for (const auto& [what, write, accepted] : cases) {
    write(folder.Path());
    const double begin = ProcessorSeconds();
    const std::optional<std::string> bytes = ReadFile((folder.Path() / "a.wav").string(), kLargestSound);
    EXPECT_EQ(bytes && ReadWave(*bytes), accepted) << what;
    const double seconds = ProcessorSeconds() - begin;
    std::cout << what << ": " << seconds << " s\n";
    if (kMeasured && !accepted) {
      EXPECT_LT(seconds, 0.2) << what;
    }
  }
}

}  // namespace
}  // namespace sorvex
