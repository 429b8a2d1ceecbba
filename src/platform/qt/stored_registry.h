// SPDX-License-Identifier: MIT
// The registry on Linux, stored in a file of the user's.
#pragma once

#include <memory>

#include "platform/registry.h"

namespace sorvex {

/// A registry stored in `sorvex/registry.ini` under $XDG_DATA_HOME (default ~/.local/share), which is written when a
/// value changes. If a file in another format is there, it is not modified and every change is denied.
std::unique_ptr<Registry> MakeStoredRegistry();

}  // namespace sorvex
