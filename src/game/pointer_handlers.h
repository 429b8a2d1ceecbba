// SPDX-License-Identifier: MIT
// The play field's pointer handlers: hover, pick up, drag, let go. They never draw; the frame loop shows their effect.
#pragma once

#include "base/numbers.h"
#include "game/game.h"

namespace sorvex {

/// Pointer places are pixels of the play field, also outside it while a button is down. All throw Overflow (6) when a
/// place or an offset is no Integer.
void PicCanvas_MouseDown(Game& game, Integer button, float x, float y);
void PicCanvas_MouseMove(Game& game, float x, float y);
void PicCanvas_MouseUp(Game& game);

/// True when the pointer is over a black pixel of `mask`, whose top-left corner lies at (left, top). An error inside is
/// shown in a box and counts as false.
bool CheckForDrag(Game& game, Integer x, Integer y, Integer left, Integer top, const PictureBox& mask);

}  // namespace sorvex
