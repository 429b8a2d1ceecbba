// SPDX-License-Identifier: MIT
// A window whose pointer events and pixels are a form's or a picture surface's.
#pragma once

#include "platform/controls.h"
#include "platform/desktop.h"
#include "platform/handlers.h"
#include "platform/input.h"
#include "platform/win32/native_window.h"

namespace sorvex {

/// What the windows of one shown form share.
struct FormContext {
  Form& form;
  Desktop& desktop;
  Handlers& handlers;
  PointerInput pointer{form};
  /// The surface that has the focus, null: none has.
  const PictureBox* focused = nullptr;
  /// The last pointer event; its time is 0 when the pointer was elsewhere since.
  MOUSEMOVEPOINT lastEvent{};
};

class PointerArea : public NativeWindow {
 public:
  /// The form's pointer is taken away.
  void LosePointer();

 protected:
  /// `surface` is null for the form itself.
  PointerArea(FormContext& context, PictureBox* surface) : context_(context), surface_(surface) {}

  /// The same when events are delivered next: the system also takes it in the midst of other work.
  void LosePointerSoon();
  LRESULT Receive(UINT message, WPARAM first, LPARAM second) override;
  void Failed() override;

  FormContext& context_;

 private:
  void Press(Integer button, WPARAM keys, POINT place);
  void Move(WPARAM keys, POINT place);
  void Release(Integer button, WPARAM keys, POINT place);
  void Left();
  void MoveTo(POINT place, Integer shift);
  bool ShowShape();
  void Paint();
  void Print(HDC target);
  int FrameOffset() const { return surface_ == nullptr ? 0 : FrameWidth(surface_->BorderStyle); }

  PictureBox* surface_;
};

}  // namespace sorvex
