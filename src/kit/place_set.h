// SPDX-License-Identifier: MIT
// Sets of places of an item on the plane, one bit a place: where it touches, where it has little room, and ways through
// the rest. Places are top-left corners in whole pixels, all relative to the container's.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "base/bit_plane.h"
#include "base/rectangle.h"
#include "kit/place.h"

namespace sorvex {

constexpr Rectangle Grown(const Rectangle& box, int by) {
  return {box.left - by, box.top - by, box.right + by, box.bottom + by};
}
constexpr Rectangle OnlyPlace(Place place) { return Rectangle::At(place.x, place.y, {1, 1}); }
/// The place of `box`, which is not empty, that lies nearest.
constexpr Place Held(Place place, const Rectangle& box) {
  return {std::clamp(place.x, box.left, box.right - 1), std::clamp(place.y, box.top, box.bottom - 1)};
}

/// Those of the places of `area` whose bit is set; row 0 and bit 0 belong to the area's corner.
struct PlaceSet {
  Rectangle area;
  BitPlane bits;

  bool Has(Place place) const {
    return area.Contains(place.x, place.y) &&
           (bits.Row(place.y - area.top)[(place.x - area.left) / 64] >> ((place.x - area.left) % 64) & 1) != 0;
  }
};

/// The smallest box that holds every set bit.
Rectangle BoundsOf(const BitPlane& plane);
/// The set bits that have an unset neighbor above, below, at the left or at the right; beyond the plane all are unset.
BitPlane OutlineOf(const BitPlane& plane);
/// The set bits that have no unset one within `by` pixels across and down; beyond the plane all are unset.
BitPlane Eroded(const BitPlane& plane, int by);

/// Where at all a bit of `item` can lie over one of `container`.
Rectangle ReachOf(const BitPlane& item, const BitPlane& container);
/// The places of `area` at which a bit of `item` lies over one of `container`.
PlaceSet Contacts(const BitPlane& item, const BitPlane& container, const Rectangle& area);
/// The places of `area` that have one of `contacts` within `room` pixels across and down.
PlaceSet Crowded(const PlaceSet& contacts, int room, const Rectangle& area);

/// Goes on straight to `place`: a way is the list of its ends and corners.
void GoStraight(std::vector<Place>& way, Place place);
/// A way of single-pixel steps, across or down, over places of the area that are not `taken`, from one of the places
/// `from` to one of the places `to` (all inside the area). nullopt when there is none.
std::optional<std::vector<Place>> FindWay(PlaceSet taken, std::span<const Rectangle> from, const Rectangle& to);

}  // namespace sorvex
