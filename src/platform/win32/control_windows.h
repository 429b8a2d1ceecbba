// SPDX-License-Identifier: MIT
// The windows of those controls that have one: surfaces of our own kind, the system's buttons and lists.
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
  /// Takes over what changed in the control since the last time; cheap when nothing did.
  virtual void Sync() = 0;
  /// What the system's own control reports to its parent: `code` is the high word of WM_COMMAND's first parameter.
  virtual void Notified(WORD /*code*/) {}
  /// A surface shows what changed in these boxes of its image.
  virtual void Show(std::span<const Rectangle> /*changed*/) {}
  /// A button shows that Enter means it.
  virtual void MarkForEnter(bool /*marked*/) {}

 private:
  Control& subject_;
};

/// A new window, hidden, on `parent`; null for a control that has none.
std::unique_ptr<ControlWindow> MakeControlWindow(Control& control, FormContext& context, HWND parent);

}  // namespace sorvex
