// SPDX-License-Identifier: MIT
// The return animation, which slides the current item back into its container, and the pause in pointer input after it.
#pragma once

#include "base/numbers.h"
#include "game/game.h"

namespace sorvex {

/// An item's rest position (top-left corner, pixels of the play field): 5 pixels from its container's left edge and 5
/// above its bottom. The constructor throws Overflow (6) if a coordinate does not fit an Integer.
struct RestPlace {
  RestPlace(Integer containerLeft, Integer containerTop, int containerHeight, int itemHeight);
  Integer x;
  Integer y;
};

/// Locks out pointer movement and, if the current item is in play, slides it to its rest position, two pixels per drawn
/// frame. Delivers no events. Throws Overflow (6) if the rest position does not fit an Integer.
void ReturnItem(Game& game);

/// Moves the current item from (x, y) one step of 2 pixels towards the target position, which is first clamped to the
/// field.
void StepTowards(Game& game, Integer x, Integer y, Integer targetX, Integer targetY);

/// True while pointer movement is locked out after a return: PicBlank then holds picBG2's picture object.
bool IsLockedOut(const frmMain& form);

/// Ends the lock-out; called by the background timer 500 ms after a return.
void tmrChangePicBack_Timer(frmMain& form);

}  // namespace sorvex
