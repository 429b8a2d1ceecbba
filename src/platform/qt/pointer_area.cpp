// SPDX-License-Identifier: MIT
// Translates native pointer events to calls of PointerInput.
#include "platform/qt/pointer_area.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <cmath>

#include "platform/qt/built_ins.h"
#include "platform/qt/text.h"

namespace sorvex {
namespace {

// 0 for buttons that the game does not use.
Integer ButtonOf(const QMouseEvent& event) {
  switch (event.button()) {
    case Qt::LeftButton: return kLeftButton;
    case Qt::RightButton: return kRightButton;
    case Qt::MiddleButton: return kMiddleButton;
    default: return 0;
  }
}

Integer ShiftOf(const QMouseEvent& event) {
  int shift = 0;
  if (event.modifiers().testFlag(Qt::ShiftModifier)) shift |= kShiftKey;
  if (event.modifiers().testFlag(Qt::ControlModifier)) shift |= kCtrlKey;
  if (event.modifiers().testFlag(Qt::AltModifier)) shift |= kAltKey;
  return static_cast<Integer>(shift);
}

}  // namespace

int LogicalPixel(int devicePixel, double scale) { return static_cast<int>(std::floor((devicePixel + 0.5) / scale)); }

PointerArea::PointerArea(FormContext& context, PictureBox* surface, QWidget* parent, Qt::WindowFlags flags)
    : QWidget(parent, flags), context_(context), surface_(surface) {
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_NoMousePropagation);
  setCursor(Qt::ArrowCursor);
}

bool PointerArea::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: Press(static_cast<const QMouseEvent&>(*event)); return true;
    case QEvent::MouseMove: Move(static_cast<const QMouseEvent&>(*event)); return true;
    case QEvent::MouseButtonRelease: Release(static_cast<const QMouseEvent&>(*event)); return true;
    case QEvent::UngrabMouse: LosePointerSoon(); return true;
    case QEvent::ToolTip: return ShowToolTip(static_cast<const QHelpEvent&>(*event));
    default: return QWidget::event(event);
  }
}

void PointerArea::LosePointer() {
  context_.runner.Run([this] { context_.pointer.Lose(); });
}

void PointerArea::LosePointerSoon() {
  QMetaObject::invokeMethod(
      this, [this] { LosePointer(); }, Qt::QueuedConnection);
}

void PointerArea::Press(const QMouseEvent& event) {
  const Integer button = ButtonOf(event);
  if (button == 0) return;
  const QPointF place = PointerPlace();
  context_.runner.Run([&, shift = ShiftOf(event)] {
    context_.pointer.Press(surface_, button, shift, static_cast<float>(place.x()), static_cast<float>(place.y()));
  });
}

void PointerArea::Move(const QMouseEvent& event) {
  const QPoint place = PointerPlace();
  ShowShapeAt(place);
  context_.runner.Run([&, shift = ShiftOf(event)] {
    context_.pointer.Move(surface_, shift, static_cast<float>(place.x()), static_cast<float>(place.y()));
  });
}

void PointerArea::Release(const QMouseEvent& event) {
  const Integer button = ButtonOf(event);
  if (button == 0) return;
  const QPointF place = PointerPlace();
  context_.runner.Run([&, shift = ShiftOf(event)] {
    context_.pointer.Release(button, shift, static_cast<float>(place.x()), static_cast<float>(place.y()));
  });
}

QPoint PointerArea::PointerPlace() const {
  const double scale = devicePixelRatioF();
  // Qt divides whole device pixels by the scale; the tolerance compensates for the rounding error.
  constexpr double kTolerance = 1.0 / 64;
  const auto seenAt = [scale](double logical) {
    return LogicalPixel(static_cast<int>(std::floor(logical * scale + kTolerance)), scale);
  };
  const QPoint corner = mapTo(window(), QPoint(FrameOffset(), FrameOffset()));
  return QPoint(seenAt(context_.pointerInWindow.x()), seenAt(context_.pointerInWindow.y())) - corner;
}

void PointerArea::ShowShapeAt(QPoint place) {
  const Control* control =
      WindowlessControlAt(context_.form, surface_, static_cast<float>(place.x()), static_cast<float>(place.y()));
  if (control == nullptr) control = surface_;
  const BuiltIn shape = control == nullptr ? BuiltIn::None : control->MousePointer;
  if (shape == shape_) return;
  shape_ = shape;
  setCursor(BuiltInCursor(shape));
}

bool PointerArea::ShowToolTip(const QHelpEvent& event) {
  const QPoint frame(FrameOffset(), FrameOffset());
  const QPoint place = event.pos() - frame;
  const Control* control =
      WindowlessControlAt(context_.form, surface_, static_cast<float>(place.x()), static_cast<float>(place.y()));
  QRect where = rect();
  if (control != nullptr) {
    const Rectangle bounds = PixelBounds(*control);
    where = QRect(bounds.left, bounds.top, bounds.Width(), bounds.Height()).translated(frame);
  } else {
    control = surface_;
  }
  // An empty text hides the tool tip.
  QToolTip::showText(event.globalPos(), control == nullptr ? QString() : ToQt(control->ToolTipText), this, where);
  return true;
}

}  // namespace sorvex
