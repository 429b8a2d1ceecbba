// SPDX-License-Identifier: MIT
// The widgets of shown controls. Sync updates a widget from its control.
#pragma once

#include <QWidget>

#include "platform/controls.h"
#include "platform/qt/pointer_area.h"

namespace sorvex {

/// The widget of one control.
class ControlWidget {
 public:
  explicit ControlWidget(Control& control) : subject_(control) {}
  virtual ~ControlWidget() = default;
  ControlWidget(const ControlWidget&) = delete;
  ControlWidget& operator=(const ControlWidget&) = delete;

  Control& Subject() const { return subject_; }
  virtual QWidget& Widget() = 0;
  /// Applies the control's changes since the last call; cheap if there are none.
  virtual void Sync() = 0;
  /// True for buttons, surfaces and lists, which are stacked above the labels and images of their container.
  virtual bool IsWindowed() const { return true; }
  /// Clicks an image or label on behalf of assistive technology.
  virtual void Click() {}
  /// Runs one of an image's commands.
  virtual void Do(const Command& /*command*/) {}
  /// Makes a button look like the one that Enter activates, or not.
  virtual void MarkForEnter(bool /*marked*/) {}

 private:
  Control& subject_;
};

/// A new widget, owned by `parent`; null for an invisible control (a timer).
ControlWidget* MakeControlWidget(Control& control, FormContext& context, QWidget* parent);

}  // namespace sorvex
