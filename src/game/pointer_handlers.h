// SPDX-License-Identifier: MIT
// The play field's pointer handlers: hover, pick up, drag, release. They never draw; the next frame shows their effect.
#pragma once

#include "base/numbers.h"
#include "game/game.h"

namespace sorvex {

/// (x, y) is the pointer in pixels of the play field; while a button is down it may lie outside. All throw Overflow (6)
/// if a coordinate or an offset does not fit an Integer.
void PicCanvas_MouseDown(Game& game, Integer button, float x, float y);
void PicCanvas_MouseMove(Game& game, float x, float y);
void PicCanvas_MouseUp(Game& game);

/// True if (x, y) is over a black pixel of `mask`, whose top-left corner is at (left, top), all in pixels of the play
/// field. An error is shown in a box and returns false.
bool CheckForDrag(Game& game, Integer x, Integer y, Integer left, Integer top, const PictureBox& mask);

}  // namespace sorvex
