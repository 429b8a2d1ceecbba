// SPDX-License-Identifier: MIT
// What the play field must show, painted from a theme's files by raster operations alone.
#pragma once

#include <filesystem>
#include <optional>
#include <utility>
#include <vector>

#include "base/bitmap.h"

namespace sorvex {

struct Placed {
  int number;
  int x;
  int y;
};

class FieldPainter {
 public:
  /// The target stands at (targetX, targetY).
  FieldPainter(std::filesystem::path themeFolder, int targetX, int targetY)
      : folder_(std::move(themeFolder)), targetX_(targetX), targetY_(targetY) {}

  /// Background, target, `items` in their order, the container on top.
  Bitmap Paint(const std::vector<Placed>& items, std::optional<Placed> container) const;

 private:
  std::filesystem::path folder_;
  int targetX_;
  int targetY_;
};

}  // namespace sorvex
