// SPDX-License-Identifier: MIT
// The system's message box, and a question with an entry field.
#pragma once

#include <windows.h>

#include <string>

#include "platform/desktop.h"

namespace sorvex {

/// Show a modal box; the system's own message loop runs until the box is closed or WM_QUIT arrives. `owner` may be
/// null.
void ShowMessageBox(HWND owner, const std::string& text, const std::string& title, BoxIcon icon);
/// Returns the text; empty on Cancel.
std::string ShowInputBox(HWND owner, const std::string& prompt, const std::string& title);

}  // namespace sorvex
