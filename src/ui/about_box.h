// SPDX-License-Identifier: MIT
// The about box: what the program says of itself, a logo that can be dragged about, two links.
#pragma once

#include <string>

#include "forms/about_window.h"
#include "platform/desktop.h"

namespace sorvex {

std::string MakerEmailAddress();
std::string MakerWebAddress();

/// Shows the box, modal to `owner`, until it is closed.
void ShowAbout(Desktop& desktop, Form& owner);

/// Fills the labels from the program's version record.
void Form_Load(Desktop& desktop, frmAbout& form);
/// Ctrl alone and the left button: the logo follows the pointer, also outside the window, until a button is released.
void imgLogo_MouseDown(frmAbout& form, Integer button, Integer shift);
void imgLogo_MouseUp(Desktop& desktop, frmAbout& form);
void Timer1_Timer(Desktop& desktop, frmAbout& form);
/// Moves comments that are taller than their box up by half a pixel.
void tmrScroll_Timer(Desktop& desktop, frmAbout& form);

}  // namespace sorvex
