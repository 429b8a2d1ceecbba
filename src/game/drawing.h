// SPDX-License-Identifier: MIT
// Drawing on surfaces: pictures through their masks, and whole frames.
#pragma once

#include "base/rectangle.h"
#include "game/game.h"
#include "platform/controls.h"

namespace sorvex {

/// Draws `picture` through `mask` with its top-left corner at (x, y) of `dest`, as far as it lies in `clip` (pixels of
/// `dest`). The pixels are those of two copies that span the picture's outer size (its frame included): the mask with
/// MERGEPAINT (white where it is black), then the picture with SRCAND. Beyond its own picture a copy leaves `dest`
/// unchanged. (Raster operations: BitBlt in the Windows GDI documentation.)
void DrawMasked(Bitmap& dest, int x, int y, const PictureBox& picture, const PictureBox& mask, const Rectangle& clip);

enum class ContainerShown { No, Yes };

/// Composes a frame on PicBackbuff and shows it on the play field at once: background, target, the items in play from
/// lowest to highest, then, if wanted and in play, the current container. What has not changed since the last frame is
/// not touched again.
void ShowFrame(Game& game, ContainerShown container);

/// Draws a frame, current container and all, onto `dest`.
void DrawFrame(const frmMain& form, const modVariables& state, Bitmap& dest);

/// Draws it straight onto the play field and shows it.
void ShowWaitingFrame(Game& game);

}  // namespace sorvex
