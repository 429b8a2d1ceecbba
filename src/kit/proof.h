// SPDX-License-Identifier: MIT
// The proof that a theme can be played: for each item a way of single-pixel steps to the target along which it never
// touches its container, and how tight that way is.
#pragma once

#include <optional>
#include <vector>

#include "kit/place_set.h"
#include "themes/theme_files.h"

namespace sorvex {

/// Tightness is looked at up to this many pixels.
inline constexpr int kMostRoom = 255;
/// How many pixels beyond the field the pointer is followed.
inline constexpr int kFarthestOutside = 500;

enum class Verdict {
  Way,         ///< it can be dragged to the target
  OutOfRange,  ///< its place, or the distance to its container, is no Integer: the game ends with an overflow
  Touches,     ///< it touches its container where it stands: the game answers no pointer
  NotHeld,     ///< no pixel of its mask inside the field is exactly black: nobody can pick it up
  OutOfReach,  ///< no pointer within kFarthestOutside of the field holds its center over the target
  NoWay,       ///< the walls close: only a movement of many pixels at once could jump them
};

/// How an item gets from one place to the target. Places are its top-left corner on the play field.
struct Journey {
  Verdict verdict = Verdict::NoWay;
  Place from;
  Place grab;  ///< the black pixel of its mask by which the pointer holds it, from the mask's corner

  // With a way
  std::vector<Place> corners;  ///< its ends and corners; between two of them it runs straight across or down
  int outside = 0;             ///< how many pixels the pointer must leave the field by, 0: it stays inside
  /// The largest r for which a way exists that keeps every place within r pixels across and down free of contact, at
  /// most kMostRoom; `roomOnceOut`: the same, counted from the first place outside the square of r pixels around the
  /// rest place. `corners` is a way with the latter. The square must be left: a target inside it is no excuse.
  int room = 0;
  int roomOnceOut = 0;
  std::optional<Place>
      tightest;  ///< where on the way, once that counts, the room is least; none: nowhere under kMostRoom

  // Without one
  Place closesAt;    ///< the last place free of contact on the way that an item with thinner edges would take
  int tooThick = 0;  ///< pixels to take off all its edges to let it through; 0: nothing that is left of it passes
};

struct ItemProof {
  Journey fromStart;
  Journey fromRest;
};

/// Works out item `item` of a theme of which the background, the target and this item's pictures could be read.
///
/// The whole mask counts. In the first frame in which an item is the current one the game's contact test sees at most
/// the size of the item before; what it finds then is a part of what the proof keeps clear of, and what it misses takes
/// the item further only by the one movement before that frame: a jump, if it crosses a wall.
ItemProof ProveItem(const Theme& theme, Long item);

}  // namespace sorvex
