// SPDX-License-Identifier: MIT
// The program's built-in pictures, icons and cursors, loaded from its resources.
#pragma once

#include <windows.h>

#include "base/rectangle.h"
#include "platform/picture.h"

namespace sorvex {

/// The icon's image for `size` x `size` pixels; null if `which` is not an icon. Never freed.
HICON BuiltInIcon(BuiltIn which, int size);
/// The cursor; for None the arrow. Never freed.
HCURSOR BuiltInCursor(BuiltIn which);
/// A new picture object; `which` must not be an icon or cursor.
Picture BuiltInPicture(BuiltIn which);
/// Paints an icon or picture stretched to `place`, respecting its transparency.
void PaintBuiltIn(HDC context, const Rectangle& place, BuiltIn which);

}  // namespace sorvex
