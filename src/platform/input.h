// SPDX-License-Identifier: MIT
// Front-end independent input rules: hit testing, pointer capture while a button is down, which button a key activates,
// when a timer is due.
#pragma once

#include <optional>
#include <vector>

#include "platform/controls.h"

namespace sorvex {

/// Hit test: the frontmost visible label or image at (x, y) of the drawing area of `surface` (null: of the form's
/// client area), in pixels; null if there is none.
Control* WindowlessControlAt(const Form& form, const PictureBox* surface, float x, float y);

/// One form's pointer. A front end reports each native press (also the second of a double click), move and release with
/// the surface that received it (null: the form) and the position in that surface's drawing area, in pixels. While a
/// button is down, the control that was pressed first has captured the pointer and gets all events.
class PointerInput {
 public:
  explicit PointerInput(const Form& form) : form_(form) {}

  void Press(PictureBox* surface, Integer button, Integer shift, float x, float y);
  void Move(PictureBox* surface, Integer shift, float x, float y);
  void Release(Integer button, Integer shift, float x, float y);
  /// The pointer capture was lost (to another window, a modal box): raises one MouseUp, for the lowest button that is
  /// down, at the last position, without a click; all buttons count as released.
  void Lose();

 private:
  const Form& form_;
  Integer down_ = 0;           // sum of the buttons that are down
  Control* target_ = nullptr;  // the control that has captured the pointer, null: none
  Integer shift_ = 0;
  float x_ = 0;
  float y_ = 0;
};

/// The controls that Tab can reach now, in tab order.
std::vector<Control*> TabOrder(const Form& form);
/// The control after `focus` (may be null) in tab order, or before it if not `forward`; null if no control takes focus.
Control* NextInTabOrder(const Form& form, const Control* focus, bool forward);
/// The button that Enter activates: `focus` (may be null) if it is a button, else the default button; null if there is
/// none.
CommandButton* ButtonForEnter(const Form& form, const Control* focus);
/// The button that Esc activates: the visible cancel button, null if there is none.
CommandButton* ButtonForEscape(const Form& form);
/// True if Enter and Esc close the form: it has no buttons.
bool ClosesByEnterAndEscape(const Form& form);
/// The image's command for function key `key` (1 for F1 and so on); null if there is none.
const Command* CommandForFunctionKey(const Form& form, int key);
/// The control that gets the focus after `gone`, which had it, was hidden: the previous one in tab order, null if none
/// takes focus.
Control* FocusAfter(const Form& form, const Control& gone);

/// The focus rectangle around a surface or list, whose native widget draws none; in pixels of its container.
Rectangle FocusRing(const Control& control);

/// Calls Tick of the form's timers that are due at `now` (a tick count).
void RunDueTimers(Form& form, Long now);
/// Milliseconds from `now` until the next timer is due (0 if one is due already); nullopt if none is enabled.
std::optional<int> NextTimer(const Form& form, Long now);

}  // namespace sorvex
