// SPDX-License-Identifier: MIT
// Painting forms and surfaces: pixels, frames, and the labels, images, lines and rectangles on them.
#pragma once

#include <windows.h>

#include "base/bitmap.h"
#include "base/rectangle.h"
#include "platform/controls.h"
#include "platform/win32/pointer_area.h"

namespace sorvex {

/// Paints the part `box` (pixels of `image`) of an image whose top-left corner is at (x, y) of the context.
void ShowPixels(HDC context, const Bitmap& image, const Rectangle& box, int x, int y);

/// Paints the rectangle `part` (client pixels) of the window of `surface` (null: of the form), with the controls
/// painted on it. `window` is the size of its client area.
void PaintArea(HDC screen, const FormContext& context, const PictureBox* surface, Size window, const RECT& part);

/// The bounds of a painted label, image, line or rectangle, in pixels of its container's drawing area.
Rectangle PaintedBounds(const Control& control);

/// True if the control has no window and is painted on its container.
bool IsPainted(const Control& control);

/// The background brush for buttons on `surface` (null: on the form). It belongs to the context: do not delete it.
HBRUSH BackgroundBrush(HDC context, const FormContext& form, const PictureBox* surface);

}  // namespace sorvex
