// SPDX-License-Identifier: MIT
// The slide of the current item back to the bottom of its container, and the pause in pointer movement it begins.
#pragma once

#include "base/numbers.h"
#include "game/game.h"

namespace sorvex {

/// Where an item rests in its container: 5 pixels from the left and 5 above the bottom. Throws Overflow (6) when that
/// is no Integer.
struct RestPlace {
  RestPlace(Integer containerLeft, Integer containerTop, int containerHeight, int itemHeight);
  Integer x;
  Integer y;
};

/// Begins the lock-out and, if the current item is in play, slides it to its rest place, two pixels a drawn frame.
/// Delivers no events. Throws Overflow (6) when the rest place is no Integer.
void ReturnItem(Game& game);

/// Moves the current item from (x, y) one step of 2 pixels towards the target, which is first held inside the field.
void StepTowards(Game& game, Integer x, Integer y, Integer targetX, Integer targetY);

/// True while pointer movement is ignored after an item was sent back: the background shown is picBG2's picture object.
bool IsLockedOut(const frmMain& form);

/// Ends the lock-out: the background timer's tick.
void tmrChangePicBack_Timer(frmMain& form);

}  // namespace sorvex
