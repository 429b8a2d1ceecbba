// SPDX-License-Identifier: MIT
// The game's sounds, recorded from a sound server of the story's own.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>

#include "support/wave_file.h"
#include "window/sitting.h"
#include "window/sound_server.h"

namespace sorvex {
namespace {

using namespace std::chrono_literals;

constexpr int kRate = 16000;
constexpr int kLevel = 1000;

// Each sound is a level of its own, so that what is heard together adds up to something else.
struct Tone {
  const char* file;
  int level;
  WaveFile wave;
};
const Tone kTones[] = {{"Pickup", kLevel, {.rate = kRate}},
                       {"LetGo", 2 * kLevel, {.tag = 0xFFFE, .rate = kRate, .subFormat = 1}},
                       {"HitTube", 4 * kLevel, {.rate = kRate, .between = Chunk("LIST", "odd") + '\0'}},
                       {"PutInCont", 8 * kLevel, {.rate = kRate, .declared = 0xFFFFFFF0}}};

struct Heard {
  std::vector<std::string> tones;  // in their order, each change once
  int mixed = 0;                   // samples of more than one
};

Heard Listen(const std::string& recording) {
  Heard heard;
  for (std::size_t at = 0; at + 2 <= recording.size(); at += 2) {
    const int level = static_cast<unsigned char>(recording[at]) + static_cast<signed char>(recording[at + 1]) * 256;
    if (level < kLevel / 2) continue;
    const auto* tone = std::ranges::find_if(kTones, [&](const Tone& t) { return std::abs(level - t.level) < 100; });
    if (tone == std::end(kTones))
      ++heard.mixed;
    else if (heard.tones.empty() || heard.tones.back() != tone->file)
      heard.tones.emplace_back(tone->file);
  }
  return heard;
}

// Four seconds each, longer than a story lets it sound.
void WriteTones(const Sitting& sitting) {
  for (const auto& [file, level, wave] : kTones) {
    std::string samples;
    for (int i = 0; i < 4 * kRate; ++i) samples += LittleEndian(static_cast<std::uint32_t>(level), 2);
    WriteFile(sitting.ThemeFile(file + std::string(".wav")), wave.With(samples));
  }
}

// Of the game whose last item is still to be put in, and of the program.
void ExpectAPromptEnd(Sitting& sitting) {
  const auto begin = std::chrono::steady_clock::now();
  sitting.PutIn(1);
  sitting.Answer("Sorvex");
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 4s);
  sitting.program->Signal(SIGTERM);
  EXPECT_TRUE(WaitUntil([&] { return !sitting.program->Runs(); }, 2s));
  EXPECT_EQ(sitting.program->ExitCode(), 0);
}

TEST(WindowSound, TheFourMomentsSoundInTurnAndCutEachOtherOffUntilTheServerHangs) {
  Sitting sitting(CupTheme(2));
  WriteTones(sitting);
  const SoundServer server(sitting);
  const fs::path file = sitting.folder.Path() / "recording";
  const Process recorder({"parec", "-d", "null.monitor", "--raw", "--format=s16le", "--rate=16000", "--channels=1",
                          "--latency-msec=20", file.string()},
                         sitting.environment);
  Await([&] { return fs::exists(file) && fs::file_size(file) > 0; }, [] { return std::string("no recording"); });

  std::vector<std::string> moments;
  const auto awaitSound = [&](const char* sound) {
    moments.emplace_back(sound);
    Await([&] { return Listen(ReadWholeFile(file)).tones == moments; },
          [&] {
            return std::string("no ") + sound + " but " + testing::PrintToString(Listen(ReadWholeFile(file)).tones);
          });
  };
  sitting.Open();
  sitting.StartGame();
  const auto takeTo = [&](int x, int y, const char* sound) {
    sitting.AwaitHover("before a drag", {sitting.Rest(0), sitting.Rest(1)}, 1);
    sitting.AwaitHover("before a drag", {sitting.Rest(0), sitting.Rest(1)}, 0);
    sitting.Grab(35, 70);
    awaitSound("Pickup");
    sitting.Hover(45, 150);
    sitting.AwaitField("while dragging", {{0, 35, 143}, sitting.Rest(1)}, sitting.Cup(0));
    sitting.Hover(x, y);
    if (sound == std::string("LetGo")) sitting.player->Release();
    awaitSound(sound);
    sitting.player->Release();
  };
  takeTo(45, 151, "LetGo");
  takeTo(45, 75, "HitTube");
  takeTo(270, 195, "PutInCont");
  EXPECT_LE(Listen(ReadWholeFile(file)).mixed, kRate / 10) << "at each change a few may hold both sounds";
  server.Signal(SIGSTOP);  // it takes connections and requests, and never answers
  ExpectAPromptEnd(sitting);
}

TEST(WindowSound, ComesFromNoServerThatHangsFromTheStartAndNothingWaitsForIt) {
  Sitting sitting(CupTheme(2));
  WriteTones(sitting);
  const SoundServer server(sitting);
  server.Signal(SIGSTOP);
  sitting.Open();
  sitting.StartGame();
  sitting.PutIn(0);
  ExpectAPromptEnd(sitting);
}

}  // namespace
}  // namespace sorvex
