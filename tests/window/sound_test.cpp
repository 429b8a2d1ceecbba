// SPDX-License-Identifier: MIT
// The game's sounds, recorded from a sound server of the story's own.
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <csignal>
#include <numbers>

#include "support/wave_file.h"
#include "window/sitting.h"

namespace sorvex {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr int kRate = 16000;
constexpr int kSlice = kRate / 50;  // 20 ms hold whole periods of every tone

struct Tone {
  const char* file;
  int hertz;
  WaveFile wave;
};
const Tone kTones[] = {{"Pickup", 500, {.rate = kRate}},
                       {"LetGo", 900, {.tag = 0xFFFE, .rate = kRate, .subFormat = 1}},
                       {"HitTube", 1500, {.rate = kRate, .between = Chunk("LIST", "odd") + '\0'}},
                       {"PutInCont", 2500, {.rate = kRate, .declared = 0xFFFFFFF0}}};

// The loudness of one tone in a slice, by Goertzel's algorithm, as a part of the loudest there is.
double Loudness(const char* samples, int hertz) {
  const double coefficient = 2 * std::cos(2 * std::numbers::pi * hertz / kRate);
  double before = 0;
  double last = 0;
  for (int i = 0; i < kSlice; ++i) {
    const int low = static_cast<unsigned char>(samples[2 * i]);
    const int high = static_cast<signed char>(samples[2 * i + 1]);
    const double next = high * 256 + low + coefficient * last - before;
    before = last;
    last = next;
  }
  return std::sqrt(before * before + last * last - coefficient * before * last) / (32768.0 * kSlice / 2);
}

struct Heard {
  std::vector<std::string> tones;  // in their order, each change once
  int mixedSlices = 0;             // with more than one tone
};

Heard Listen(const std::string& recording) {
  Heard heard;
  for (std::size_t at = 0; at + 2 * kSlice <= recording.size(); at += 2 * kSlice) {
    std::vector<std::string> now;
    for (const Tone& tone : kTones)
      if (Loudness(recording.data() + at, tone.hertz) > 0.1) now.emplace_back(tone.file);
    if (now.size() > 1) ++heard.mixedSlices;
    if (now.size() == 1 && (heard.tones.empty() || heard.tones.back() != now[0])) heard.tones.push_back(now[0]);
  }
  return heard;
}

// Four seconds, longer than a story lets it sound.
std::string SamplesOf(int hertz) {
  std::string samples;
  for (int i = 0; i < 4 * kRate; ++i) {
    const double value = 0.3 * 32767 * std::sin(2 * std::numbers::pi * hertz * i / kRate);
    samples += LittleEndian(static_cast<std::uint32_t>(static_cast<int>(value)), 2);
  }
  return samples;
}

void WriteTones(const Sitting& sitting) {
  for (const Tone& tone : kTones)
    WriteFile(sitting.ThemeFile(tone.file + std::string(".wav")), tone.wave.With(SamplesOf(tone.hertz)));
}

// Programs can connect to it.
struct SoundServer : Process {
  explicit SoundServer(const Sitting& sitting)
      : SoundServer(sitting, sitting.environment.at("PULSE_SERVER").substr(5)) {}

 private:
  SoundServer(const Sitting& sitting, const std::string& socket)
      : Process({"pulseaudio", "-n", "--daemonize=no", "--disable-shm=yes", "--exit-idle-time=-1", "-L",
                 "module-null-sink sink_name=null rate=16000 channels=1", "-L",
                 "module-native-protocol-unix socket=" + socket},
                sitting.environment) {
    Await([&] { return fs::exists(socket); }, [] { return std::string("no sound server"); });
  }
};

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
  sitting.Grab(35, 70);
  awaitSound("Pickup");
  sitting.Hover(100, 150);
  sitting.AwaitField("while dragging", {{0, 90, 143}, sitting.Rest(1)}, sitting.Cup(0));
  sitting.player->Release();
  awaitSound("LetGo");
  sitting.AwaitHover("after the lock-out", {sitting.Rest(0), sitting.Rest(1)}, 1);
  sitting.Grab(35, 70);
  awaitSound("Pickup");
  sitting.Hover(55, 70);
  awaitSound("HitTube");
  sitting.player->Release();
  sitting.AwaitHover("after the lock-out", {sitting.Rest(0), sitting.Rest(1)}, 1);
  sitting.Grab(35, 70);
  awaitSound("Pickup");
  sitting.Hover(60, 150);
  sitting.AwaitField("while dragging", {{0, 50, 143}, sitting.Rest(1)}, sitting.Cup(0));
  sitting.Hover(270, 195);
  awaitSound("PutInCont");
  EXPECT_LE(Listen(ReadWholeFile(file)).mixedSlices, 5) << "one slice at each change may hold both sounds";

  sitting.player->Release();
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
