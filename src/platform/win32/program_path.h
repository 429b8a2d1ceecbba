// SPDX-License-Identifier: MIT
// Where the running program lies.
#pragma once

#include <string>

namespace sorvex {

/// The executable's full path, also one longer than MAX_PATH.
std::wstring ProgramPath();

}  // namespace sorvex
