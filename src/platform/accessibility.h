// SPDX-License-Identifier: MIT
// What assistive technology is told, the same on every system: the order of reading and the names.
#pragma once

#include <string>
#include <vector>

#include "platform/controls.h"

namespace sorvex {

/// The controls on `container` (null: on the form itself) in the order in which one reads them: row by row, each from
/// the left. Hidden ones are among them.
std::vector<Control*> ReadingOrder(const Form& form, const PictureBox* container);

/// What a surface is called where nothing that is painted on it has a name of its own: its accessible name, and behind
/// it the captions of the labels that are shown on it, in reading order.
std::string SpokenText(const Form& form, const PictureBox& surface);

}  // namespace sorvex
