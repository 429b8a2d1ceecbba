// SPDX-License-Identifier: MIT
// What forms and surfaces look like: pixels, frames, and the labels, images, lines and rectangles drawn on them.
#pragma once

#include <windows.h>

#include "base/bitmap.h"
#include "base/rectangle.h"
#include "platform/controls.h"
#include "platform/win32/pointer_area.h"

namespace sorvex {

/// Shows what `box` (pixels of `image`) holds, the image's corner being at (x, y) of the context.
void ShowPixels(HDC context, const Bitmap& image, const Rectangle& box, int x, int y);

/// Paints `part` (client pixels) of the form's window, or of the window of `surface`, with everything drawn on it.
void PaintArea(HDC screen, const FormContext& context, const PictureBox* surface, Size window, const RECT& part);

/// Where a label, image, line or rectangle is painted, in pixels of its container's drawing area.
Rectangle PaintedBounds(const Control& control);

/// True for what is painted on its container rather than being a window.
bool IsPainted(const Control& control);

/// The brush for what shows through a button on the form or `surface`; it belongs to the context.
HBRUSH BackgroundBrush(HDC context, const FormContext& form, const PictureBox* surface);

}  // namespace sorvex
