// SPDX-License-Identifier: MIT
// The default theme as it ships: complete, in keeping with the drawing convention, and solvable.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <queue>
#include <vector>

#include "game/collision.h"
#include "support/story.h"

namespace sorvex {
namespace {

class Theme1 : public testing::Test {
 protected:
  Theme1() {
    for (const auto& file : std::filesystem::directory_iterator(SORVEX_SOURCE_FOLDER "/themes/Theme1"))
      if (file.is_regular_file()) WriteFile(story.ThemeFile(file.path().filename().string()), ReadWholeFile(file));
    story.desktop.Boxes.clear();
    story.Start().Frames(1);
    story.Run();
  }

  Integer RestX(Long item) const { return static_cast<Integer>(state.ContX(item) + 5); }
  Integer RestY(Long item) const {
    const int height = form.picCont(item).ScaleSize().height - form.PicSprite(item).ScaleSize().height;
    return static_cast<Integer>(state.ContY(item) + height - 5);
  }
  bool Touches(Long item, int x, int y) {
    return HitsContainer(static_cast<Integer>(x), static_cast<Integer>(y), state.ContX(item), state.ContY(item),
                         form.PicMask(item), form.PicContMask(item), form.picCD);
  }
  bool CanBeDraggedOut(Long item);

  Story story{std::vector<TestTheme>{}};
  frmMain& form = story.form;
  modVariables& state = story.state;
};

TEST_F(Theme1, LoadsWithoutAWord) {
  EXPECT_TRUE(story.desktop.Boxes.empty());
  EXPECT_GE(state.LastItem, 7);
  EXPECT_LE(form.PicCanvas.ScaleSize().height, 252) << "the image that opens the chooser would be covered";
  EXPECT_FALSE(form.ThemeDescription.empty() || form.ThemeDate.empty());
  for (const std::string& row : story.Rows()) EXPECT_EQ(row, "Nobody|00/00/00|100");
  for (const std::string& wave : story.desktop.PreparedWaves)
    EXPECT_EQ(ReadWholeFile(wave).substr(0, 4), "RIFF") << wave;
}

TEST_F(Theme1, EveryItemStartsAtRestWithoutAContactAndCanBeDraggedOut) {
  for (Long i = 0; i <= state.LastItem; ++i) {
    EXPECT_EQ(state.ItemX(i), RestX(i)) << "item " << i;
    EXPECT_EQ(state.ItemY(i), RestY(i)) << "item " << i;
    Touches(i, RestX(i), RestY(i));  // the first test of a larger item sees only part of it
    EXPECT_FALSE(Touches(i, RestX(i), RestY(i))) << "item " << i;
    const Rectangle at = Rectangle::At(RestX(i), RestY(i), form.PicSprite(i).ScaleSize());
    EXPECT_EQ(Intersection(at, form.PicCanvas.Image().Bounds()), at) << "item " << i << " rests outside the field";
    EXPECT_TRUE(CanBeDraggedOut(i)) << "item " << i;
  }
}

// Breadth-first over the places that the item can be moved to pixel by pixel without a contact.
bool Theme1::CanBeDraggedOut(Long item) {
  const Size field = form.PicCanvas.ScaleSize();
  const Rectangle places{-60, -60, field.width + 60, field.height + 60};
  const Rectangle container = Rectangle::At(state.ContX(item), state.ContY(item), form.picCont(item).ScaleSize());
  const Size size = form.PicSprite(item).ScaleSize();
  std::vector<bool> seen(static_cast<std::size_t>(places.Width() * places.Height()));
  std::queue<std::pair<int, int>> next;
  next.emplace(RestX(item), RestY(item));
  while (!next.empty()) {
    const auto [x, y] = next.front();
    next.pop();
    if (Intersection(Rectangle::At(x, y, size), container).Empty()) return true;
    for (const auto& [dx, dy] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}}) {
      if (!places.Contains(x + dx, y + dy)) continue;
      const auto index = static_cast<std::size_t>((y + dy - places.top) * places.Width() + x + dx - places.left);
      if (seen[index] || Touches(item, x + dx, y + dy)) continue;
      seen[index] = true;
      next.emplace(x + dx, y + dy);
    }
  }
  return false;
}

}  // namespace
}  // namespace sorvex
