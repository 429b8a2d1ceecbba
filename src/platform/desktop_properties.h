// SPDX-License-Identifier: MIT
// Properties of controls that depend on the desktop. Label::SetCaption and Label::FitToText are implemented here too.
#pragma once

#include "platform/controls.h"
#include "platform/desktop.h"

namespace sorvex {

/// Makes a control visible and does the work deferred while it was hidden: loads its built-in picture and resizes the
/// auto-size labels on it to their text.
void ShowControl(Desktop& desktop, const Form& form, Control& control);

/// Sets every picture surface of a new form to its background color and, unless it is hidden, to its built-in picture.
void PaintDesign(Desktop& desktop, Form& form);

}  // namespace sorvex
