// SPDX-License-Identifier: MIT
// The surroundings as Windows has them: each function is its namesake of the desktop (platform/desktop.h).
#pragma once

#include <string>

#include "base/numbers.h"
#include "platform/desktop.h"

namespace sorvex {

Long TickCount();
ScreenPoint PointerPosition();
void PlayWave(const std::string& path);
void OpenAddress(const std::string& address);
std::string ShortDate();
std::string ProgramFolder();
/// The executable's full path, also one longer than MAX_PATH.
std::wstring ProgramPath();

}  // namespace sorvex
