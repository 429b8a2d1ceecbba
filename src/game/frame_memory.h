// SPDX-License-Identifier: MIT
// The last frame's content, from which the next frame's dirty rectangles follow.
#pragma once

#include <array>
#include <optional>
#include <span>

#include "base/bitmap.h"
#include "base/rectangle.h"
#include "game/mod_variables.h"

namespace sorvex {

/// A picture's position in a frame.
struct Placement {
  Integer which = -1;  ///< index in its control array, -1: not drawn
  Integer x = 0;
  Integer y = 0;
  bool operator==(const Placement&) const = default;
};

/// Everything that determines a frame's pixels. Pictures change only with a theme load, which `themeLoads` counts.
struct FrameContent {
  unsigned themeLoads = 0;
  const Pixel* background = nullptr;
  Size backgroundSize;
  std::array<Placement, 1 + kMostItems + 1> placements;  ///< in drawing order: the target, the items, the container
  bool operator==(const FrameContent&) const = default;
};

/// All inputs of drawing a frame and of its two tests, and all that the tests modify.
struct FrameState {
  unsigned themeLoads = 0;
  const Pixel* background = nullptr;
  Size backgroundSize;
  unsigned backbuffRevision = 0;
  unsigned canvasRevision = 0;
  ItemTable table;
  Integer targetX = 0;
  Integer targetY = 0;
  Integer currentItem = 0;
  Integer currentContainer = 0;
  bool mouseHeld = false;
  bool dragging = false;
  Size workSize;
  bool operator==(const FrameState&) const = default;
};

struct FrameMemory {
  FrameContent content;  ///< what PicBackbuff shows while its revision is backbuffRevision
  unsigned backbuffRevision = 0;
  unsigned canvasRevision = 0;        ///< PicCanvas shows the same while this is its revision
  std::optional<FrameState> settled;  ///< the last frame's state, if its tests changed nothing
};

/// A frame's dirty rectangles. Overlapping ones are merged into their bounding box.
class DirtyRectangles {
 public:
  void Add(Rectangle box);
  std::span<const Rectangle> All() const { return {rectangles_.data(), count_}; }

 private:
  std::array<Rectangle, 2 * (1 + kMostItems + 1)> rectangles_;
  std::size_t count_ = 0;
};

}  // namespace sorvex
