// SPDX-License-Identifier: MIT
// What the executable's version resource says of the program.
#pragma once

#include "platform/desktop.h"

namespace sorvex {

/// Empty where the resource cannot be read.
VersionInfo ReadVersionResource();

}  // namespace sorvex
