// SPDX-License-Identifier: MIT
// One widget for each control that is shown. A widget shows what its control says whenever it is synchronised.
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
  /// Takes over what changed in the control since the last time; cheap when nothing did.
  virtual void Sync() = 0;
  /// Buttons, surfaces and lists lie in front of the labels and images of their container.
  virtual bool IsWindowed() const { return true; }
  /// A click on what is no button, by assistive technology.
  virtual void Click() {}
  /// Runs one of an image's commands.
  virtual void Do(const Command& /*command*/) {}
  /// A button shows that Enter means it.
  virtual void MarkForEnter(bool /*marked*/) {}

 private:
  Control& subject_;
};

/// A new widget, owned by `parent`; null for a control that is never seen (a timer).
ControlWidget* MakeControlWidget(Control& control, FormContext& context, QWidget* parent);

}  // namespace sorvex
