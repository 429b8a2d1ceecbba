// SPDX-License-Identifier: MIT
// The about box: version information, a logo that can be dragged, two links.
#pragma once

#include <string>

#include "forms/about_window.h"
#include "platform/desktop.h"

namespace sorvex {

std::string MakerEmailAddress();
std::string MakerWebAddress();

/// Shows the box modally to `owner` and returns when it is closed.
void ShowAbout(Desktop& desktop, Form& owner);

/// Fills the labels from Desktop::Version.
void FillAboutLabels(Desktop& desktop, frmAbout& form);
/// Left button with Ctrl and no other modifier: the logo follows the pointer, also outside the window, until a button
/// is released.
void imgLogo_MouseDown(frmAbout& form, Integer button, Integer shift);
/// Ends the drag; Timer1 then puts the logo back.
void imgLogo_MouseUp(Desktop& desktop, frmAbout& form);
/// Moves the dragged logo to the pointer; after a release puts it back.
void Timer1_Timer(Desktop& desktop, frmAbout& form);
/// Scrolls comments that are taller than their box up by half a pixel.
void tmrScroll_Timer(Desktop& desktop, frmAbout& form);

}  // namespace sorvex
