// SPDX-License-Identifier: MIT
// Native input made clean, once for every front end: which control a pointer event reaches, who keeps it while a
// button is down, which button a key means, when a timer is due.
#pragma once

#include <optional>
#include <vector>

#include "platform/controls.h"

namespace sorvex {

/// The frontmost visible label or image drawn on `surface` (null: on the form itself) at that place of its drawing
/// area, null when there is none.
Control* WindowlessControlAt(const Form& form, const PictureBox* surface, float x, float y);

/// One form's pointer. A front end reports each native press (every press, the second of a double click too), movement
/// and release with the surface that the window system named for it (null: the form) and the place in that surface's
/// drawing area. While a button is down all events belong to the control that was pressed first.
class PointerInput {
 public:
  explicit PointerInput(const Form& form) : form_(form) {}

  void Press(PictureBox* surface, Integer button, Integer shift, float x, float y);
  void Move(PictureBox* surface, Integer shift, float x, float y);
  void Release(Integer button, Integer shift, float x, float y);
  /// The window system took the pointer away (another window, a modal box): as if the buttons had been released where
  /// the pointer was last, without a click.
  void Lose();

 private:
  const Form& form_;
  Integer down_ = 0;           // the buttons that are down
  Control* target_ = nullptr;  // whose events they are, null: nobody's
  Integer shift_ = 0;
  float x_ = 0;
  float y_ = 0;
};

/// The controls that Tab visits now, in order.
std::vector<Control*> TabOrder(const Form& form);
/// Where Tab (or Shift+Tab) leads from `focus` (may be null): null when there is nowhere to go.
Control* NextInTabOrder(const Form& form, const Control* focus, bool forward);
/// What Enter activates while `focus` (may be null) has the focus: that button, else the default one; null: nothing.
CommandButton* ButtonForEnter(const Form& form, const Control* focus);
/// What Esc activates: the shown cancel button, null: nothing.
CommandButton* ButtonForEscape(const Form& form);
/// True when Enter and Esc close the form: it has no button that they could mean.
bool ClosesByEnterAndEscape(const Form& form);
/// What a function key (1: F1, ...) does: the command of an image, null: nothing.
const Command* CommandForFunctionKey(const Form& form, int key);
/// Where the focus goes when `gone`, which had it, is no longer shown: to the control before it in the tab order.
Control* FocusAfter(const Form& form, const Control& gone);

/// Around a surface or a list, in its container: where the focus is marked on what has no mark of its own.
Rectangle FocusRing(const Control& control);

/// Runs the handlers of the form's timers that are due at `now` (a tick count).
void RunDueTimers(Form& form, Long now);
/// Milliseconds from `now` until the next timer is due (0: one is), nullopt when none is enabled.
std::optional<int> NextTimer(const Form& form, Long now);

}  // namespace sorvex
