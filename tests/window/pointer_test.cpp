// SPDX-License-Identifier: MIT
// Where the pointer is, to the pixel, and every place that it was at.
#include <gtest/gtest.h>

#include <cmath>
#include <csignal>

#include "window/sitting.h"

namespace sorvex {
namespace {

using namespace std::chrono_literals;

// Items that can be grabbed only at their last column.
TestTheme ThinItems(int count) {
  TestTheme theme = CupTheme(count);
  for (TestItem& item : theme.items) item.clear = item.size.width - 1;
  return theme;
}

class WindowAtScale : public testing::TestWithParam<double> {};

TEST_P(WindowAtScale, APressMeansThePixelSeenThere) {
  Sitting sitting(ThinItems(2), GetParam());
  sitting.Open();
  const Rectangle client = sitting.player->ClientArea(sitting.window);
  EXPECT_NEAR(client.Width(), 335 * GetParam(), 1);
  EXPECT_NEAR(client.Height(), 294 * GetParam(), 1);
  sitting.StartGame();

  const Placed rest = sitting.Rest(0);
  const Rectangle row = sitting.OnScreen({10 + rest.x, 10 + rest.y + 7, 10 + rest.x + 14, 10 + rest.y + 8});
  const Bitmap seen = sitting.player->Look({row.left, row.top, row.right + 2, row.top + 1});
  std::vector<int> opaque;
  for (int x = 0; x < seen.Width(); ++x)
    if (seen.At(x, 0) == 0xFFC00000) opaque.push_back(row.left + x);
  ASSERT_EQ(opaque.size(), static_cast<std::size_t>(row.right - opaque.front()));

  const std::vector<Placed> atRest{rest, sitting.Rest(1)};
  const auto press = [&](int column) {
    sitting.AwaitHover("before a press", atRest, 1);
    sitting.AwaitHover("before a press", atRest, 0);
    sitting.player->Move(column, row.top);
    sitting.player->Press();
    sitting.player->Move(column, row.bottom);
  };
  for (const int column : {opaque.front() - 1, opaque.back() + 1}) {
    // An item that had followed would be put in, or be sent back with half a second's lock-out.
    EXPECT_TRUE(WaitUntil([&] {
      press(column);
      sitting.Hover(275, 195);
      const auto letGo = std::chrono::steady_clock::now();
      sitting.player->Release();
      sitting.AwaitHover("after a press beside the item", atRest, 1);
      return std::chrono::steady_clock::now() - letGo < 500ms;
    })) << column;
  }
  for (const int column : opaque) {
    press(column);
    sitting.AwaitField("after a press on the item", {{0, rest.x, rest.y + 1}, sitting.Rest(1)}, sitting.Cup(0));
    for (int x = 180; x < 184; ++x) {
      sitting.Hover(x, x);
      sitting.AwaitField("while dragging", {{0, x - 13, x - 7}, sitting.Rest(1)}, sitting.Cup(0));
    }
    sitting.Hover(275, 195);
    sitting.AwaitField("after the item was put in", {sitting.Rest(1)}, std::nullopt);
    sitting.player->Release();
    sitting.StartGame();
  }
}

INSTANTIATE_TEST_SUITE_P(Factors, WindowAtScale, testing::Values(1, 1.25, 1.5, 2),
                         [](const auto& info) { return std::to_string(std::lround(info.param * 100)); });

TEST(WindowPointer, EveryQueuedMovementCounts) {
  Sitting sitting(ThinItems(1));
  sitting.Open();
  sitting.StartGame();
  sitting.program->Signal(SIGSTOP);
  sitting.Hover(30, 70);
  sitting.player->Press();
  for (const auto& [x, y] : {std::pair{38, 70}, {38, 20}, {200, 100}}) sitting.Hover(x, y);
  sitting.program->Signal(SIGCONT);
  sitting.AwaitField("after the pointer crossed the item", {{0, 195, 93}}, sitting.Cup(0));
}

}  // namespace
}  // namespace sorvex
