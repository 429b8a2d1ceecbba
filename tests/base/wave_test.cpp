// SPDX-License-Identifier: MIT
// Wave files, whole and cut, honest and not.
#include "base/wave.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/wave_file.h"

namespace sorvex {
namespace {

constexpr std::uint32_t kExtensible = 0xFFFE;

TEST(Wave, HoldsTheSamplesThatAreThereWhateverIsDeclared) {
  const std::string bytes = "0123456789abc";
  const std::tuple<const char*, WaveFile, SampleKind, std::size_t> cases[] = {
      {"8 bits", {.bits = 8}, SampleKind::Unsigned8, 13},
      {"16 bits", {}, SampleKind::Signed16, 12},
      {"24 bits, two channels", {.channels = 2, .bits = 24}, SampleKind::Signed24, 12},
      {"32 bits", {.bits = 32}, SampleKind::Signed32, 12},
      {"floating point", {.tag = 3, .bits = 32}, SampleKind::Float32, 12},
      {"no format tag", {.tag = 0}, SampleKind::Signed16, 12},
      {"extensible", {.tag = kExtensible, .subFormat = 1}, SampleKind::Signed16, 12},
      {"extensible float", {.tag = kExtensible, .bits = 32, .subFormat = 3}, SampleKind::Float32, 12},
      {"odd chunk before", {.between = Chunk("LIST", "odd") + '\0'}, SampleKind::Signed16, 12},
      {"odd chunk, not filled up", {.between = Chunk("LIST", "odd")}, SampleKind::Signed16, 12},
      {"less declared", {.declared = 5}, SampleKind::Signed16, 4},
      {"4 GiB declared", {.declared = 0xFFFFFFFF}, SampleKind::Signed16, 12},
      {"nothing declared", {.declared = 0}, SampleKind::Signed16, 12},
  };
  for (const auto& [what, file, kind, size] : cases) {
    const std::string written = file.With(bytes);
    const std::optional<Wave> wave = ReadWave(written);
    ASSERT_TRUE(wave) << what;
    EXPECT_EQ(std::tuple(wave->channels, wave->sampleRate, wave->kind),
              std::tuple(static_cast<int>(file.channels), 8000, kind))
        << what;
    EXPECT_EQ(wave->samples, bytes.substr(0, size)) << what;
  }
}

TEST(Wave, IsRefusedWhenItIsNoPlainSound) {
  const std::string whole = WaveFile{}.With("samples");
  std::string bigEndian = whole;
  bigEndian[3] = 'X';
  const std::string cases[] = {
      "not a wave",
      bigEndian,
      Chunk("RIFF", "AVI " + whole.substr(12)),
      Chunk("RIFF", "WAVE" + Chunk("data", "samples")),
      Chunk("RIFF", "WAVE" + Chunk("fmt ", "short") + '\0' + Chunk("data", "samples")),
      WaveFile{.tag = 2, .bits = 4}.With("compressed"),
      WaveFile{.tag = kExtensible}.With("which?"),
      WaveFile{.tag = kExtensible, .subFormat = 2}.With("compressed"),
      WaveFile{.tag = 3, .bits = 64}.With("too fine"),
      WaveFile{.bits = 12}.With("odd bits"),
      WaveFile{.channels = 0}.With("none"),
      WaveFile{.channels = 9}.With("many"),
      WaveFile{.rate = 999}.With("slow"),
      WaveFile{.rate = 384'001}.With("fast"),
      WaveFile{.between = Chunk("LIST", std::string(3, 'x')).replace(4, 4, "\xFF\xFF\xFF\xFF")}.With("swallowed")};
  for (const std::string& file : cases) EXPECT_FALSE(ReadWave(file)) << testing::PrintToString(file);
}

// In memory of exactly that length, where a read beyond it is seen.
TEST(Wave, IsReadToNoMoreThanItsEndWhereverItIsCut) {
  const std::string file =
      WaveFile{.tag = kExtensible, .subFormat = 1, .between = Chunk("LIST", "odd") + '\0'}.With("samples!");
  const std::size_t samplesAt = file.size() - 8;
  for (std::size_t length = 0; length <= file.size(); ++length) {
    const std::vector<char> cut(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length));
    const std::optional<Wave> wave = ReadWave({cut.data(), cut.size()});
    ASSERT_EQ(wave.has_value(), length >= samplesAt) << length;
    if (wave) {
      EXPECT_EQ(wave->samples.size(), (length - samplesAt) / 2 * 2);
    }
  }
}

}  // namespace
}  // namespace sorvex
