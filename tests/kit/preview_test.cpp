// SPDX-License-Identifier: MIT
// The preview held against the game's first frame.
#include "kit/preview.h"

#include <gtest/gtest.h>

#include "support/story.h"

namespace sorvex {
namespace {

TEST(Preview, IsWhatTheGameShowsFirst) {
  Story story;
  Bitmap first;
  story.Start().Then([&] { first = story.Field(); });
  story.Run();
  EXPECT_EQ(DrawPreview(ReadTheme(story.ThemeFile("").string())), first);
}

}  // namespace
}  // namespace sorvex
