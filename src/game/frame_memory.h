// SPDX-License-Identifier: MIT
// What the last frame was made of, so that the next one redoes only what differs.
#pragma once

#include <array>
#include <optional>
#include <span>

#include "base/bitmap.h"
#include "base/rectangle.h"
#include "game/mod_variables.h"

namespace sorvex {

/// A picture's place in a frame.
struct Placement {
  Integer which = -1;  ///< its number in its control array, -1: not drawn
  Integer x = 0;
  Integer y = 0;
  bool operator==(const Placement&) const = default;
};

/// All that a frame's pixels follow from. Pictures change only with a theme load.
struct FrameContent {
  unsigned themeLoads = 0;
  const Pixel* background = nullptr;
  Size backgroundSize;
  std::array<Placement, 1 + kMostItems + 1> placements;  ///< in drawing order: the target, the items, the container
  bool operator==(const FrameContent&) const = default;
};

/// All that drawing a frame and its two tests read, and all that the tests set.
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
  FrameContent content;  ///< what PicBackbuff shows, as long as its revision is backbuffRevision
  unsigned backbuffRevision = 0;
  unsigned canvasRevision = 0;        ///< PicCanvas shows the same, as long as this is its revision
  std::optional<FrameState> settled;  ///< in which the last frame was shown and its tests changed nothing
};

/// Boxes to redo. Overlapping ones are joined.
class BoxList {
 public:
  void Add(Rectangle box);
  std::span<const Rectangle> Boxes() const { return {boxes_.data(), count_}; }

 private:
  std::array<Rectangle, 2 * (1 + kMostItems + 1)> boxes_;
  std::size_t count_ = 0;
};

}  // namespace sorvex
