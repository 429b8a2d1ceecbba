// SPDX-License-Identifier: MIT
// Wraps and truncates a message so that its box fits the screen and opens quickly, however long the text is.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/rectangle.h"

namespace sorvex {

/// Returns the size of a line in the box's font, in pixels, with tabs expanded.
using MeasureLine = std::function<Size(std::string_view line)>;

/// Wraps `text` to lines of at most `room.width` pixels, at blanks if possible, else within a word. Keeps as many lines
/// as a box on a screen of `room.height` pixels shows, and ends the last one with an ellipsis if lines were dropped. If
/// a line begins with a tab, its continuation lines do too. Lines of the result are separated by CR LF.
std::string BoxText(std::string_view text, Size room, const MeasureLine& measure);

}  // namespace sorvex
