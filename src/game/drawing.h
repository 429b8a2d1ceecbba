// SPDX-License-Identifier: MIT
// Drawing on surfaces: pictures through their masks, and whole frames.
#pragma once

#include "game/game.h"
#include "platform/controls.h"

namespace sorvex {

/// Draws `picture` through `mask` with its top-left corner at (x, y) of `dest`. The pixels are those of two copies that
/// span the picture's outer size (its frame included): the mask with MERGEPAINT (white where it is black), then the
/// picture with SRCAND. Beyond its own picture a copy leaves `dest` unchanged.
/// (Raster operations: BitBlt in the Windows GDI documentation.)
void DrawMasked(PictureBox& dest, int x, int y, const PictureBox& picture, const PictureBox& mask);

/// Copies `source` onto `dest` at (0, 0), as far as both reach (SRCCOPY).
void CopySurface(PictureBox& dest, const PictureBox& source);

/// Composes a frame on `dest`: background, target, the items in play from lowest to highest.
void ComposeFrame(Game& game, PictureBox& dest);
/// Draws the current container, if it is in play, over them.
void DrawContainer(Game& game, PictureBox& dest);

/// Shows PicBackbuff on the play field at once.
void PresentFrame(Game& game);

}  // namespace sorvex
