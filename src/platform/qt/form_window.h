// SPDX-License-Identifier: MIT
// The native window of a shown form: mirrors the form's controls and reports events to its FormController.
#pragma once

#include <QTimer>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

#include "platform/form_controller.h"
#include "platform/qt/control_widgets.h"
#include "platform/qt/pointer_area.h"

namespace sorvex {

class FormWindow final : public PointerArea, private FormView {
 public:
  /// With an owner (may be null) the window is modal and closes before it.
  FormWindow(std::unique_ptr<FormContext> context, FormWindow* owner);

  FormController& Controller() { return controller_; }
  /// Shows the window and moves the focus to the first control in tab order.
  void Open();
  /// The control's widget; null if the control has never been shown.
  QWidget* WidgetOf(const Control& control) const;

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  const Control* FocusedControl() const override;
  void Focus(const Control* control) override;
  void MarkForEnter(const CommandButton* button) override;
  void SetCaption(const std::string& caption) override;
  void BackgroundChanged() override { update(); }
  void SetClientSize(Size client) override;
  void ControlsChanged() override;
  bool SyncControls() override;
  void SetTimer(std::optional<int> milliseconds) override;

  ControlWidget* Mirror(Control& control);
  void Restack();
  void CenterOnOwner();

  std::unique_ptr<FormContext> ownedContext_;
  FormWindow* owner_;
  FormController controller_{context_.form, context_.desktop, context_.runner, *this};
  std::unordered_map<const Control*, ControlWidget*> widgets_;
  QTimer timer_;
};

}  // namespace sorvex
