// SPDX-License-Identifier: MIT
// The owner of one shown form. Its window reports what happened; what follows from it for focus, keys, timers, sizes
// and closing is decided here, and asked of the window through a small view.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/controls.h"
#include "platform/handlers.h"
#include "platform/shown.h"

namespace sorvex {

/// What a form's window does for its controller.
class FormView {
 public:
  virtual ~FormView() = default;

  /// The control that has the focus in this window, null: none.
  virtual const Control* FocusedControl() const = 0;
  /// Gives a control the focus; null: the window itself, where it can have it.
  virtual void Focus(const Control* control) = 0;
  /// Shows that Enter means this button (null: none) and no other.
  virtual void MarkForEnter(const CommandButton* button) = 0;

  virtual void SetCaption(const std::string& caption) = 0;
  /// The form's background colour is another one.
  virtual void BackgroundChanged() = 0;
  /// Makes the client area so large, pixels.
  virtual void SetClientSize(Size client) = 0;

  /// Controls came or went: what was made for those that are gone goes too.
  virtual void ControlsChanged() = 0;
  /// Brings every control up to date. True when something was made for one that had not been seen before.
  virtual bool SyncControls() = 0;

  /// Sets the window's only timer, which fires once, to so many milliseconds from now; nullopt stops it.
  virtual void SetTimer(std::optional<int> milliseconds) = 0;
};

class FormController {
 public:
  /// From here on the form counts as loaded.
  FormController(Form& form, Desktop& desktop, Handlers& handlers, FormView& view)
      : form_(form), desktop_(desktop), handlers_(handlers), view_(view) {
    form.Loaded = true;
  }

  Form& ShownForm() const { return form_; }

  /// Brings the window up to date.
  void Sync();
  /// Runs the timers that are due.
  void RunTimers();

  // What happens to the window. The answer to a key is false when it means nothing to the form.
  /// It opens: the first control in tab order takes the focus.
  void FocusFirst();
  void FocusChanged();
  bool Tab(bool forward);
  bool Enter();
  bool Escape();
  /// 1: F1, ...
  bool FunctionKey(int key);
  /// Alt and a character, in UTF-8.
  bool AccessKey(std::string_view character);
  /// The client area has another size, pixels.
  void Resized(Size client);
  /// The client area's corner is there on the screen, pixels.
  void Moved(int left, int top);
  void TimerFired();
  /// The close box was used, or something that means the same.
  void Close();

 private:
  using OuterSize = std::pair<float, float>;

  void SyncSize();
  void LeaveGoneFocus();
  void ArmTimer();
  void MoveFocus(const Control* control);
  bool Activate(const CommandButton* button);
  OuterSize FormSize() const { return {form_.Width, form_.Height}; }

  Form& form_;
  Desktop& desktop_;
  Handlers& handlers_;
  FormView& view_;
  std::vector<Control*> controls_;  // the form's at the last synchronisation
  Shown<std::string> caption_;
  Shown<Color> background_;
  Shown<const CommandButton*> marked_;
  std::optional<std::uint32_t> timerDue_;  // the tick count for which the view's timer is set
  OuterSize setSize_;                      // what the program set last
  OuterSize seenSize_;                     // what the form said at the last exchange
  Size requested_;                         // the client area that follows from setSize_
};

}  // namespace sorvex
