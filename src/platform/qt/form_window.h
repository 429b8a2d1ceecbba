// SPDX-License-Identifier: MIT
// The top-level window of one shown form: mirrors the form and its controls, rules focus and keys, runs its timers.
#pragma once

#include <QTimer>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/qt/control_widgets.h"
#include "platform/qt/pointer_area.h"

namespace sorvex {

class FormWindow final : public PointerArea {
 public:
  /// With an owner the window is modal and closes before it.
  FormWindow(std::unique_ptr<FormContext> context, FormWindow* owner);

  Form& ShownForm() { return context_.form; }
  /// Brings the window and every widget up to date.
  void Sync();
  /// The window appears, the first control in tab order has the focus.
  void Open();
  /// As if the close box had been used.
  void Unload();
  void RunTimers();
  /// The widget of a control that is or was shown, else null.
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
  struct OuterSize {
    float width = 0;
    float height = 0;
    bool operator==(const OuterSize&) const = default;
  };

  void SyncWindow();
  void SyncControls();
  void DropWidgetsOfGoneControls();
  void LeaveGoneFocus();
  /// Shows which control has the focus and which button Enter means.
  void MarkFocus();
  ControlWidget* Mirror(Control& control);
  void Restack();
  void ArmTimer();
  void CenterOnOwner();
  void KeepPosition();
  void Focus(const Control* control);
  Control* FocusedControl() const;
  OuterSize FormSize() const { return {context_.form.Width, context_.form.Height}; }

  std::unique_ptr<FormContext> ownedContext_;
  FormWindow* owner_;
  std::vector<Control*> mirrored_;  // the form's controls at the last synchronisation
  std::unordered_map<const Control*, ControlWidget*> widgets_;
  QTimer timer_;
  std::uint32_t timerDue_ = 0;  // the tick count for which timer_ is set
  std::string caption_;
  Color background_;
  OuterSize setSize_;   // what the program set last
  OuterSize seenSize_;  // what the form said at the last exchange
  QSize requested_;     // the client area that follows from setSize_
};

}  // namespace sorvex
