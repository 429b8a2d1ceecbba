// SPDX-License-Identifier: MIT
// The sound of a moment: started and forgotten.
#pragma once

#include <string>

#include "platform/desktop.h"

namespace sorvex::modPlayWav {

/// Starts the wave file and returns at once; a sound that still plays is cut off.
inline void PlayWav(Desktop& desktop, const std::string& path) { desktop.PlayWave(path); }

}  // namespace sorvex::modPlayWav
