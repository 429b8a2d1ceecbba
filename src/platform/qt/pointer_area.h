// SPDX-License-Identifier: MIT
// A widget that receives the pointer events of a form or picture surface, and shows tool tips and cursors.
#pragma once

#include <QPoint>
#include <QPointF>
#include <QWidget>

#include "platform/controls.h"
#include "platform/desktop.h"
#include "platform/handler_runner.h"
#include "platform/input.h"

class QHelpEvent;
class QMouseEvent;

namespace sorvex {

/// State shared by the widgets of one shown form.
struct FormContext {
  Form& form;
  Desktop& desktop;
  HandlerRunner& runner;
  PointerInput pointer{form};
  /// The position in the window of the pointer event being delivered, in logical pixels. The event's own copy may be
  /// overwritten by a nested Enter event, and its position in the widget is rounded.
  QPointF pointerInWindow{};
};

/// The logical pixel shown at a device pixel. Images are scaled by the same rule, so that the pointer always refers to
/// the pixel under it.
int LogicalPixel(int devicePixel, double scale);

class PointerArea : public QWidget {
 public:
  /// `surface` is null for the form itself.
  PointerArea(FormContext& context, PictureBox* surface, QWidget* parent, Qt::WindowFlags flags = {});

  /// Handles loss of the form's pointer capture.
  void LosePointer();

 protected:
  /// The same at the next event delivery, because the capture may also be lost while a window is being synchronized.
  void LosePointerSoon();
  bool event(QEvent* event) override;

  FormContext& context_;

 private:
  void Press(const QMouseEvent& event);
  void Move(const QMouseEvent& event);
  void Release(const QMouseEvent& event);
  /// The position of the pointer event being delivered, in pixels of the drawing area.
  QPoint PointerPlace() const;
  void ShowShapeAt(QPoint place);
  bool ShowToolTip(const QHelpEvent& event);
  int FrameOffset() const { return surface_ == nullptr ? 0 : FrameWidth(surface_->BorderStyle); }

  PictureBox* surface_;
  BuiltIn shape_ = BuiltIn::None;
};

}  // namespace sorvex
