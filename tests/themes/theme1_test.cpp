// SPDX-License-Identifier: MIT
// The default theme as it ships: complete, and in keeping with the drawing convention. That it can be
// played to its end is for the proof to say (kit/proof_test.cpp).
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
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

TEST_F(Theme1, EveryItemStartsAtRestWithoutAContact) {
  for (Long i = 0; i <= state.LastItem; ++i) {
    EXPECT_EQ(state.ItemX(i), RestX(i)) << "item " << i;
    EXPECT_EQ(state.ItemY(i), RestY(i)) << "item " << i;
    Touches(i, RestX(i), RestY(i));  // the first test of a larger item sees only part of it
    EXPECT_FALSE(Touches(i, RestX(i), RestY(i))) << "item " << i;
    const Rectangle at = Rectangle::At(RestX(i), RestY(i), form.PicSprite(i).ScaleSize());
    EXPECT_EQ(Intersection(at, form.PicCanvas.Image().Bounds()), at) << "item " << i << " rests outside the field";
  }
}

}  // namespace
}  // namespace sorvex
