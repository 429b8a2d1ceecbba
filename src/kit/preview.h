// SPDX-License-Identifier: MIT
// Pictures of a theme for its maker.
#pragma once

#include <span>

#include "base/bitmap.h"
#include "kit/proof.h"
#include "themes/theme_files.h"

namespace sorvex {

/// The play field as the game starts with it.
Bitmap DrawPreview(const Theme& theme);

/// The same with what was worked out of each item drawn over it, in a color of the item's own: its container's
/// outline, the way of its center to the target, a box of its size where that is tightest, and a cross where the walls
/// close.
Bitmap DrawPreview(const Theme& theme, std::span<const ItemProof> proofs);

/// The color of item `number` in the preview.
Pixel ColorOf(int number);

}  // namespace sorvex
