// SPDX-License-Identifier: MIT
// Reading the executable's version resource.
#pragma once

#include "platform/desktop.h"

namespace sorvex {

/// The version resource; fields that cannot be read are empty.
VersionInfo ReadVersionResource();

}  // namespace sorvex
