// SPDX-License-Identifier: MIT
// Native windows of controls: our own class for surfaces, the system's controls for buttons and lists.
#pragma once

#include <windows.h>

#include <memory>
#include <span>

#include "platform/controls.h"
#include "platform/win32/pointer_area.h"

namespace sorvex {

class ControlWindow {
 public:
  explicit ControlWindow(Control& control) : subject_(control) {}
  virtual ~ControlWindow() = default;
  ControlWindow(const ControlWindow&) = delete;
  ControlWindow& operator=(const ControlWindow&) = delete;

  Control& Subject() const { return subject_; }
  virtual HWND Window() const = 0;
  /// Applies the control's changes since the last call; cheap if there are none.
  virtual void Sync() = 0;
  /// Handles the system control's notification `code` (the high word of WM_COMMAND's wParam).
  virtual void Notified(WORD /*code*/) {}
  /// A surface repaints these dirty rectangles (pixels of its image) at once.
  virtual void Show(std::span<const Rectangle> /*changed*/) {}
  /// Makes a button look like the one that Enter activates, or not.
  virtual void MarkForEnter(bool /*marked*/) {}

 private:
  Control& subject_;
};

/// A new hidden child window of `parent`; null for a control without a native window.
std::unique_ptr<ControlWindow> MakeControlWindow(Control& control, FormContext& context, HWND parent);

}  // namespace sorvex
