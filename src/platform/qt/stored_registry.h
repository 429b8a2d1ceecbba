// SPDX-License-Identifier: MIT
// The registry of a system that has none, kept in a file of the user's.
#pragma once

#include <memory>

#include "platform/registry.h"

namespace sorvex {

/// Kept in `sorvex/registry.ini` under $XDG_DATA_HOME (by default ~/.local/share), which is written when a value
/// changes. A file there that is none of ours is never touched, and every change is denied.
std::unique_ptr<Registry> MakeStoredRegistry();

}  // namespace sorvex
