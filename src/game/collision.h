// SPDX-License-Identifier: MIT
// The collision and placement tests that each frame makes for the current item.
#pragma once

#include "base/numbers.h"
#include "base/rectangle.h"
#include "game/mask.h"
#include "platform/controls.h"

namespace sorvex {

/// True if an opaque pixel of the item (exactly black in its mask) overlaps an opaque pixel of the container (red below
/// 64 in its mask). (dx, dy) is the item's top-left corner relative to the container's; only the item's top-left part
/// of size `seen` is tested.
bool MasksTouch(const Mask& item, const Mask& container, int dx, int dy, Size seen);

/// The same for masks on surfaces. Positions are top-left corners in pixels of the play field. Only the part of the
/// item that fits the drawing area of `work`, which has the size of the previously tested item, is tested; then `work`
/// takes this item's size. Throws Overflow (6) if the difference of the positions is not an Integer.
bool HitsContainer(Integer itemLeft, Integer itemTop, Integer containerLeft, Integer containerTop,
                   const PictureBox& itemMask, const PictureBox& containerMask, PictureBox& work);

/// The top-left corners at which an item's center lies inside the target's rectangle, edges excluded. Sizes and
/// positions are pixels of the play field.
Rectangle PlacesOverTarget(Size item, int targetLeft, int targetTop, Size target);
/// True if the item is at one of them. Positions are top-left corners; sizes are those of the masks.
bool OverTarget(Integer itemLeft, Integer itemTop, Integer targetLeft, Integer targetTop, const PictureBox& itemMask,
                const PictureBox& targetMask);

}  // namespace sorvex
