// SPDX-License-Identifier: MIT
// The one desktop of the program under test.
#pragma once

#include "platform/desktop.h"

namespace sorvex {

inline Desktop& TheDesktop() {
  static int argumentCount = 0;
  static const std::unique_ptr<Desktop> desktop = MakeDesktop(argumentCount, nullptr);
  return *desktop;
}

}  // namespace sorvex
