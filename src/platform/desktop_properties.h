// SPDX-License-Identifier: MIT
// What of a control follows from the desktop it is shown on; so do Label::SetCaption and Label::FitToText.
#pragma once

#include "platform/controls.h"
#include "platform/desktop.h"

namespace sorvex {

/// Makes a control visible. What was put off while it was hidden is done now: loading its built-in picture, and giving
/// auto-size labels on it the size of their text.
void ShowControl(Desktop& desktop, const Form& form, Control& control);

/// Gives every picture surface of a new form its background colour and, unless it is hidden, its built-in picture.
void PaintDesign(Desktop& desktop, Form& form);

}  // namespace sorvex
