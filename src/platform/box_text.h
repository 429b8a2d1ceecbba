// SPDX-License-Identifier: MIT
// What a message box shows of a text, so that it fits its screen and opens at once whatever the text.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/rectangle.h"

namespace sorvex {

/// Pixels that a line takes in the box's font, tabs expanded.
using MeasureLine = std::function<Size(std::string_view line)>;

/// `text` in lines of at most `room.width` pixels, broken at blanks or else within a word; as many as a box on a screen
/// of `room.height` pixels shows, the last one with an ellipsis when there are more. Of a line that begins with a tab
/// all that it is broken into is indented.
std::string BoxText(std::string_view text, Size room, const MeasureLine& measure);

}  // namespace sorvex
