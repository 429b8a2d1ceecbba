// SPDX-License-Identifier: MIT
// The tool tips of one form's controls.
#pragma once

#include <windows.h>

#include <string>
#include <unordered_map>

#include "base/rectangle.h"
#include "platform/controls.h"

namespace sorvex {

class ToolTips {
 public:
  explicit ToolTips(HWND form);

  /// Updates the control's tool tip. `window` is the control's or its container's; `place` is the control in client
  /// pixels.
  void Sync(const Control& control, HWND window, const Rectangle& place);
  void Forget(const Control& control);

 private:
  struct Tip {
    std::string text;
    HWND window;
    Rectangle place;
    bool operator==(const Tip&) const = default;
  };

  HWND window_;  // owned by the form's window and destroyed with it
  std::unordered_map<const Control*, Tip> tips_;
};

}  // namespace sorvex
