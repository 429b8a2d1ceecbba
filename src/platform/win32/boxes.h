// SPDX-License-Identifier: MIT
// The system's message box, and a question with an entry field.
#pragma once

#include <windows.h>

#include <string>

#include "platform/desktop.h"

namespace sorvex {

/// Both wait in a loop of the system's until the box is closed or a WM_QUIT message comes. `owner` may be null.
void ShowMessageBox(HWND owner, const std::string& text, const std::string& title, BoxIcon icon);
/// What was typed; empty on Cancel.
std::string ShowInputBox(HWND owner, const std::string& prompt, const std::string& title);

}  // namespace sorvex
