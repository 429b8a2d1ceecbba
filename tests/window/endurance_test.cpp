// SPDX-License-Identifier: MIT
// Many games over three themes in one window without a restart: what a game takes it gives back. SORVEX_GAMES says how
// many.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <span>

#include "window/sitting.h"

namespace sorvex {
namespace {

// The window's size changes with the theme.
TestTheme SmallTheme(const std::string& name, int width) {
  TestTheme theme = CupTheme(2, name);
  theme.field.width = width;
  return theme;
}

// Chooses the theme, plays it to a best time, and looks at the other boxes.
void PlayOn(Sitting& sitting, const TestTheme& theme) {
  sitting.theme = theme;
  const std::string title = "Sorvex - " + theme.name;
  WriteFile(sitting.ThemeFile("HighScores.ini"), theme.highScores);
  sitting.player->Tap("F3");
  sitting.Await("Choose a theme");
  sitting.player->Type(theme.name.substr(0, 1));
  sitting.Answer("Choose a theme");
  sitting.Await(title);
  sitting.StartGame();
  // Before Start the field looks as in the first frame: only another cup tells that the game takes the pointer.
  sitting.AwaitHover("in the game", {sitting.Rest(0), sitting.Rest(1)}, 1);
  sitting.PutIn(1);
  sitting.PutIn(0);
  sitting.Answer("Sorvex");
  sitting.Await("You got a highscore");
  sitting.player->Type("Ann");
  sitting.Answer("You got a highscore");
  sitting.Await(title);
  sitting.AwaitPanel(true);
  sitting.Click(165, 270);
  sitting.AwaitPanel(false);
  sitting.Click(175, 271);  // where the pointer's shape changes
  sitting.Answer("About");
  sitting.Await(title);
  sitting.player->Tap("F2");
  sitting.Answer("Theme Details");
  sitting.Await(title);
}

struct Held {
  std::size_t memory;
  std::size_t descriptors;
};

// The least after a game on each theme: both waver from one game to the next, the descriptors with the sounds.
Held PlayRound(Sitting& sitting, std::span<const TestTheme> themes) {
  constexpr std::size_t kMost = std::numeric_limits<std::size_t>::max();
  Held held{kMost, kMost};
  for (const TestTheme& theme : themes) {
    PlayOn(sitting, theme);
    held.memory = std::min(held.memory, sitting.program->ResidentMemory());
    held.descriptors = std::min(held.descriptors, sitting.program->Descriptors());
  }
  return held;
}

TEST(WindowEndurance, AfterManyGamesNoMoreIsHeldThanAfterTheFirst) {
  const std::array themes{SmallTheme("Theme1", 316), SmallTheme("Apple", 350), SmallTheme("Birch", 390)};
  Sitting sitting(themes[0]);
  for (const TestTheme& theme : themes) {
    WriteTheme(sitting.folder.Path() / "program", theme);
    sitting.theme = theme;
    sitting.WriteSounds(4000);
  }
  sitting.Open();
  constexpr int kFirst = 4;
  constexpr std::size_t kWavering = 1024 * 1024;
  constexpr std::size_t kWaveringDescriptors = 8;  // of the system's sounds; one a game would be 24
  const char* wanted = std::getenv("SORVEX_GAMES");
  const int rounds = std::max((wanted == nullptr ? 36 : std::atoi(wanted)) / 3, kFirst + 1);
  Held first{0, 0};
  Held last{0, 0};
  for (int round = 1; round <= rounds; ++round) {
    last = PlayRound(sitting, themes);
    if (round > kFirst) continue;
    first = {std::max(first.memory, last.memory), std::max(first.descriptors, last.descriptors)};
  }
  std::printf("%d games: %zu KiB and %zu descriptors after %d, %zu KiB and %zu at the end\n", 3 * rounds,
              first.memory / 1024, first.descriptors, 3 * kFirst, last.memory / 1024, last.descriptors);
  EXPECT_LT(last.memory, first.memory + kWavering);
  EXPECT_LT(last.descriptors, first.descriptors + kWaveringDescriptors);
}

}  // namespace
}  // namespace sorvex
