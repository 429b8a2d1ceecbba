// SPDX-License-Identifier: MIT
// Asynchronous sound playback.
#pragma once

#include <string>

#include "platform/desktop.h"

namespace sorvex::modPlayWav {

/// Starts playing the wave file at `path` and returns at once; a sound that is still playing is cut off.
inline void PlayWav(Desktop& desktop, const std::string& path) { desktop.PlayWave(path); }

}  // namespace sorvex::modPlayWav
