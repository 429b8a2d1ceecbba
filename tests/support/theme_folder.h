// SPDX-License-Identifier: MIT
// Themes made for tests: folders of plain shapes, and the pieces to make odd ones from.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "base/bitmap.h"

namespace sorvex {

/// A 24-bit bitmap file.
std::string BmpBytes(const Bitmap& bitmap);
/// A cup: `wall` pixels of black at the left, at the right and below, white inside.
Bitmap CupMask(Size size, int wall = 3);
/// `color` where `mask` is black, white elsewhere.
Bitmap Colored(const Bitmap& mask, Pixel color);
/// A 30-line highscore file whose times are `times`, the rest default rows.
std::string HighScoreFile(const std::vector<std::string>& times);

struct TestItem {
  int x, y;          ///< where it starts
  int contX, contY;  ///< where its container stands
  Size size{14, 12};
  Size contSize{40, 60};
  int clear = 2;  ///< columns at its left edge that are transparent

  int RestX() const { return contX + 5; }
  int RestY() const { return contY + contSize.height - 5 - size.height; }
};

struct TestTheme {
  std::string name = "Theme1";
  std::vector<TestItem> items;
  Size field{316, 236};
  int targetX = 250;
  int targetY = 180;
  Size target{40, 30};
  std::string highScores = HighScoreFile({});  ///< empty: no file
};

/// `count` items at rest in cups that stand side by side.
TestTheme CupTheme(int count, const std::string& name = "Theme1");

/// Writes the theme's folder into `programFolder`.
void WriteTheme(const std::filesystem::path& programFolder, const TestTheme& theme);

}  // namespace sorvex
