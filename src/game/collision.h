// SPDX-License-Identifier: MIT
// The two questions that every frame asks of the current item.
#pragma once

#include "base/numbers.h"
#include "base/rectangle.h"
#include "game/mask.h"
#include "platform/controls.h"

namespace sorvex {

/// True when an opaque pixel of the item (its mask exactly black), as far as it lies in its part of size `seen`, lies
/// over an opaque pixel of its container (the container mask's red below 64), where the item's corner stands (dx, dy)
/// further in than its container's.
bool MasksTouch(const Mask& item, const Mask& container, int dx, int dy, Size seen);

/// The same for masks on their surfaces. Positions are top-left corners on the play field. Only the part of the item
/// inside the drawing area of `work` is looked at, that is the size of the item tested before; then `work` takes this
/// item's size. Throws Overflow (6) when the distance of the two corners is no Integer.
bool HitsContainer(Integer itemLeft, Integer itemTop, Integer containerLeft, Integer containerTop,
                   const PictureBox& itemMask, const PictureBox& containerMask, PictureBox& work);

/// The places of an item whose centre lies inside the target's rectangle, edges excluded.
Rectangle PlacesOverTarget(Size item, int targetLeft, int targetTop, Size target);
/// True when the item is at one of them.
bool OverTarget(Integer itemLeft, Integer itemTop, Integer targetLeft, Integer targetTop, const PictureBox& itemMask,
                const PictureBox& targetMask);

}  // namespace sorvex
