// SPDX-License-Identifier: MIT
// A window that receives the pointer events of a form or picture surface and paints it.
#pragma once

#include "platform/controls.h"
#include "platform/desktop.h"
#include "platform/handler_runner.h"
#include "platform/input.h"
#include "platform/win32/native_window.h"

namespace sorvex {

/// State shared by the windows of one shown form.
struct FormContext {
  Form& form;
  Desktop& desktop;
  HandlerRunner& runner;
  PointerInput pointer{form};
  /// The surface that has the focus; null if none has.
  const PictureBox* focused = nullptr;
  /// The last pointer event (screen pixels); its time is 0 if the pointer has left the form since.
  MOUSEMOVEPOINT lastEvent{};
};

class PointerArea : public NativeWindow {
 public:
  /// Handles loss of the form's pointer capture.
  void LosePointer();

 protected:
  /// `surface` is null for the form itself.
  PointerArea(FormContext& context, PictureBox* surface) : context_(context), surface_(surface) {}

  /// The same at the next event delivery, because the capture may also be lost during other work.
  void LosePointerSoon();
  LRESULT Receive(UINT message, WPARAM first, LPARAM second) override;
  void OnException() override;

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
