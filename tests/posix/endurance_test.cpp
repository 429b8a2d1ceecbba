// SPDX-License-Identifier: MIT
// Many games over three themes without a restart: what a game takes it gives back. SORVEX_GAMES says how many.
#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <tuple>

#include "forms/choose_theme_window.h"
#include "support/story.h"

// Present under AddressSanitizer, whose memory mallinfo2 does not count.
// NOLINTNEXTLINE(bugprone-reserved-identifier,readability-identifier-naming)
extern "C" std::size_t __sanitizer_get_current_allocated_bytes() __attribute__((weak));

namespace sorvex {
namespace {

std::size_t AllocatedBytes() {
  if (__sanitizer_get_current_allocated_bytes != nullptr) return __sanitizer_get_current_allocated_bytes();
  const struct mallinfo2 heap = ::mallinfo2();
  return heap.uordblks + heap.hblkhd;
}

struct Held {
  explicit Held(const Story& story)
      : bytes(AllocatedBytes()),
        descriptors(std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {})),
        controls(story.form.Controls.size()),
        timer(story.desktop.FrontWindow().Timer.has_value()) {}

  std::size_t bytes;
  std::ptrdiff_t descriptors;
  std::size_t controls;
  bool timer;
};

// Chooses the theme and plays it to the end, with a contact, a best time and a look at the about box.
void QueueGame(Story& story, const TestTheme& theme) {
  story.Then([&] { story.form.Image2.Click(); }).Then([&] {
    auto& chooser = dynamic_cast<frmChooseTheme&>(story.desktop.Front());
    const auto entry = std::ranges::find(chooser.List1.List, theme.name);
    chooser.List1.ListIndex = static_cast<int>(entry - chooser.List1.List.begin());
    chooser.OKButton.Click();
  });
  story.Start().Grab(32, 69).Move(22, 69).Frames(1).Release().Wait(1000);
  for (int i = 0; i < static_cast<int>(theme.items.size()); ++i) story.PutIn(i);
  story.Frames(1).Then([&] { story.form.cmdHideScores.Click(); });
  story.Then([&] { story.form.imgAbout.Commands.front().Action(); });
  story.Then([&] { story.desktop.Front().Loaded = false; }).Frames(1);
}

TEST(Endurance, AfterManyGamesNoMoreIsHeldThanAfterTen) {
  const char* wanted = std::getenv("SORVEX_GAMES");
  constexpr int kWarmUp = 10;
  const int rounds = ((wanted == nullptr ? 100 : std::atoi(wanted)) - kWarmUp) / 3;  // of all themes
  const std::vector<TestTheme> themes{CupTheme(1, "Theme1"), CupTheme(2, "Theme2"), CupTheme(4, "Theme3")};
  Story story(themes);
  story.desktop.MillisecondsPerDelivery = 10;
  story.desktop.TypeName = [] { return "Ann"; };
  std::vector<Held> held;
  held.reserve(2);
  int games = 0;
  int contacts = 0;
  int bestTimes = 0;
  const std::function<void()> nextGame = [&] {
    contacts += static_cast<int>(std::ranges::count(story.Sounds(), "HitTube"));
    bestTimes += static_cast<int>(story.desktop.Prompts.size());
    story.desktop.Waves.clear();
    story.desktop.Boxes.clear();
    story.desktop.Prompts.clear();
    if (games == kWarmUp || games == kWarmUp + 3 * rounds) held.emplace_back(story);
    if (games == kWarmUp + 3 * rounds) return;
    const TestTheme& theme = themes[static_cast<std::size_t>(games++ % 3)];
    WriteFile(story.ThemeFile("HighScores.ini", theme.name), theme.highScores);
    QueueGame(story, theme);
    story.Then(nextGame);
  };
  story.Then(nextGame).Run();

  ASSERT_EQ(held.size(), 2U);
  EXPECT_EQ(contacts, games);
  EXPECT_EQ(bestTimes, games);
  const auto& [early, late] = std::tie(held[0], held[1]);
  std::printf("%d games: %zu bytes and %td descriptors after %d, %zu and %td at the end\n", games, early.bytes,
              early.descriptors, kWarmUp, late.bytes, late.descriptors);
  // Freed blocks that the C library sets aside count as allocated; what each game keeps adds up to more than they do.
  EXPECT_LT(late.bytes, early.bytes + 16 * 1024);
  EXPECT_EQ(late.descriptors, early.descriptors);
  EXPECT_EQ(late.controls, early.controls);
  EXPECT_EQ(late.timer, early.timer);
}

}  // namespace
}  // namespace sorvex
