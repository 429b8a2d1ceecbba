// SPDX-License-Identifier: MIT
// Masked drawing of pictures, and composing whole frames.
#pragma once

#include "base/rectangle.h"
#include "game/game.h"
#include "platform/controls.h"

namespace sorvex {

/// Draws `picture` through `mask` with its top-left corner at (x, y) of `dest`, clipped to `clip` (pixels of `dest`).
/// The result is that of two BitBlt calls over the picture's outer size (frame included): the mask with raster
/// operation MERGEPAINT, which makes `dest` white where the mask is black, then the picture with SRCAND. Outside the
/// source picture a copy leaves `dest` unchanged.
void DrawMasked(Bitmap& dest, int x, int y, const PictureBox& picture, const PictureBox& mask, const Rectangle& clip);

enum class ContainerShown { No, Yes };

/// Composes a frame on PicBackbuff and shows it on the play field before returning: background, target, the items in
/// play in ascending order, then the current container if requested and in play. Redraws only the dirty rectangles: the
/// areas that changed since the last frame.
void ShowFrame(Game& game, ContainerShown container);

/// Draws a complete frame, including the current container, onto `dest`.
void DrawFrame(const frmMain& form, const modVariables& state, Bitmap& dest);

/// Draws a complete frame directly onto the play field, without the back buffer, and shows it.
void ShowWaitingFrame(Game& game);

}  // namespace sorvex
