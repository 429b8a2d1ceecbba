// SPDX-License-Identifier: MIT
// A widget whose pointer events are a form's or a picture surface's: presses, movements, releases, tool tips, shapes.
#pragma once

#include <QPoint>
#include <QPointF>
#include <QWidget>

#include "platform/controls.h"
#include "platform/desktop.h"
#include "platform/handlers.h"
#include "platform/input.h"

class QHelpEvent;
class QMouseEvent;

namespace sorvex {

/// What the widgets of one shown form share.
struct FormContext {
  Form& form;
  Desktop& desktop;
  Handlers& handlers;
  PointerInput pointer{form};
  /// Where in the window the pointer event that is delivered happened. The event's own place there may be overwritten
  /// by an Enter event that is sent on its way, and its place in the widget is rounded.
  QPointF pointerInWindow{};
};

/// The logical pixel that is seen at a device pixel. Images are scaled by the same rule, so that the pointer always
/// means the pixel under it.
int LogicalPixel(int devicePixel, double scale);

class PointerArea : public QWidget {
 public:
  /// `surface` is null for the form itself.
  PointerArea(FormContext& context, PictureBox* surface, QWidget* parent, Qt::WindowFlags flags = {});

  /// The form's pointer is taken away.
  void LosePointer();

 protected:
  /// The same when events are delivered next: the window system also takes it while a window is brought up to date.
  void LosePointerSoon();
  bool event(QEvent* event) override;

  FormContext& context_;

 private:
  void Press(const QMouseEvent& event);
  void Move(const QMouseEvent& event);
  void Release(const QMouseEvent& event);
  /// The pixel of the drawing area that the delivered pointer event happened at.
  QPoint PointerPlace() const;
  void ShowShapeAt(QPoint place);
  bool ShowToolTip(const QHelpEvent& event);
  int FrameOffset() const { return surface_ == nullptr ? 0 : FrameWidth(surface_->BorderStyle); }

  PictureBox* surface_;
  BuiltIn shape_ = BuiltIn::None;
};

}  // namespace sorvex
