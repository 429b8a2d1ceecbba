// SPDX-License-Identifier: MIT
// The pictures that ship inside the program, read from its resources.
#pragma once

#include <windows.h>

#include "base/rectangle.h"
#include "platform/picture.h"

namespace sorvex {

/// The icon's image for a square of `size` pixels; null for what is no icon. It lives as long as the program.
HICON BuiltInIcon(BuiltIn which, int size);
/// The pointer shape; None is the arrow. It lives as long as the program.
HCURSOR BuiltInCursor(BuiltIn which);
/// A new picture object of a picture that is no icon.
Picture BuiltInPicture(BuiltIn which);
/// Paints an icon or a picture stretched to `place`; where it is transparent, what was there stays.
void PaintBuiltIn(HDC context, const Rectangle& place, BuiltIn which);

}  // namespace sorvex
