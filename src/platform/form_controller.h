// SPDX-License-Identifier: MIT
// The front-end independent controller of a shown form: focus, keys, timers, size and closing. The native window
// reports events to it and is controlled through the interface FormView.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/controls.h"
#include "platform/handler_runner.h"
#include "platform/shown_value.h"

namespace sorvex {

/// The interface through which the controller acts on a form's native window.
class FormView {
 public:
  virtual ~FormView() = default;

  /// The control of this window that has the focus, null if none has.
  virtual const Control* FocusedControl() const = 0;
  /// Moves the focus to a control; null: to the window itself, if the system allows that.
  virtual void Focus(const Control* control) = 0;
  /// Draws this button (null: none) and no other as the one that Enter activates.
  virtual void MarkForEnter(const CommandButton* button) = 0;

  virtual void SetCaption(const std::string& caption) = 0;
  /// The form's background color has changed.
  virtual void BackgroundChanged() = 0;
  /// Resizes the client area, in pixels.
  virtual void SetClientSize(Size client) = 0;

  /// Controls were created or removed: destroys the widgets of removed ones.
  virtual void ControlsChanged() = 0;
  /// Synchronizes every widget with its control. True if a widget was created.
  virtual bool SyncControls() = 0;

  /// Starts the window's only timer, which fires once after `milliseconds`; nullopt stops it.
  virtual void SetTimer(std::optional<int> milliseconds) = 0;
};

class FormController {
 public:
  /// Sets the form's Loaded.
  FormController(Form& form, Desktop& desktop, HandlerRunner& runner, FormView& view)
      : form_(form), desktop_(desktop), runner_(runner), view_(view) {
    form.Loaded = true;
  }

  Form& ShownForm() const { return form_; }

  /// Synchronizes the window with the form.
  void Sync();
  /// Runs the timers that are due.
  void RunTimers();

  // Events of the window. Functions for keys return false if the key has no meaning in the form.
  /// The window has opened: moves the focus to the first control in tab order.
  void FocusFirst();
  void FocusChanged();
  bool Tab(bool forward);
  bool Enter();
  bool Escape();
  /// `key` is 1 for F1 and so on.
  bool FunctionKey(int key);
  /// Alt and a character (UTF-8) were pressed.
  bool AccessKey(std::string_view character);
  /// The client area's size has changed to `client` (pixels).
  void Resized(Size client);
  /// The client area's top-left corner has moved to (left, top) on the screen, in pixels.
  void Moved(int left, int top);
  void TimerFired();
  /// The window is asked to close: runs the form's Unload and clears its Loaded.
  void Close();

 private:
  using OuterSize = std::pair<float, float>;

  void SyncSize();
  void MoveFocusOffHidden();
  void ArmTimer();
  void MoveFocus(const Control* control);
  bool Activate(const CommandButton* button);
  OuterSize FormSize() const { return {form_.Width, form_.Height}; }

  Form& form_;
  Desktop& desktop_;
  HandlerRunner& runner_;
  FormView& view_;
  std::vector<Control*> controls_;  // the form's controls at the last Sync
  ShownValue<std::string> caption_;
  ShownValue<Color> background_;
  ShownValue<const CommandButton*> marked_;
  std::optional<std::uint32_t> timerDue_;  // tick count for which the view's timer is set
  OuterSize setSize_;                      // the form's size as the program last set it
  OuterSize seenSize_;                     // the form's size when last read or written here
  Size requested_;                         // the client area for setSize_
};

}  // namespace sorvex
