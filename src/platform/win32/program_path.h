// SPDX-License-Identifier: MIT
// The path of the running program.
#pragma once

#include <string>

namespace sorvex {

/// The executable's full path, which may be longer than MAX_PATH.
std::wstring ProgramPath();

}  // namespace sorvex
