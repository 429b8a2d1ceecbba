// SPDX-License-Identifier: MIT
// Front-end independent accessibility: reading order and names of controls.
#pragma once

#include <string>
#include <vector>

#include "platform/controls.h"

namespace sorvex {

/// The controls on `container` (null: directly on the form), including hidden ones, in reading order: row by row, each
/// row from left to right.
std::vector<Control*> ReadingOrder(const Form& form, const PictureBox* container);

/// A surface's name on systems that do not expose the labels painted on it: its accessible name, followed by the
/// captions of its visible labels in reading order.
std::string SpokenText(const Form& form, const PictureBox& surface);

}  // namespace sorvex
