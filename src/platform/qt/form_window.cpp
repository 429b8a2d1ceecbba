// SPDX-License-Identifier: MIT
// A form as a native window.
#include "platform/qt/form_window.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QResizeEvent>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <cstddef>
#include <unordered_set>
#include <utility>

#include "platform/qt/built_ins.h"
#include "platform/qt/text.h"

namespace sorvex {
namespace {

Qt::WindowFlags FlagsOf(const Form& form, bool owned) {
  // Tool windows have no taskbar entry; dialogs share their owner's.
  Qt::WindowFlags flags = !owned ? Qt::Window : form.Border == FormBorder::FixedToolWindow ? Qt::Tool : Qt::Dialog;
  flags |= Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
  if (form.MinButton) flags |= Qt::WindowMinimizeButtonHint;
  return flags;
}

// A transparent icon. A window without any icon would get its owner's, from Qt and from window managers.
QIcon UnseenIcon() {
  QPixmap pixels(16, 16);
  pixels.fill(Qt::transparent);
  return pixels;
}

}  // namespace

FormWindow::FormWindow(std::unique_ptr<FormContext> context, FormWindow* owner)
    : PointerArea(*context, nullptr, owner, FlagsOf(context->form, owner != nullptr)),
      ownedContext_(std::move(context)),
      owner_(owner) {
  if (owner != nullptr) setWindowModality(Qt::ApplicationModal);
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  connect(&timer_, &QTimer::timeout, this, [this] { controller_.TimerFired(); });
}

void FormWindow::Open() {
  controller_.Sync();
  controller_.FocusFirst();
  if (context_.form.CenterOnOwner && owner_ != nullptr) CenterOnOwner();
  show();
  // Loaded only now, while the window manager maps the window, so that it does not delay the first paint.
  setWindowIcon(context_.form.Icon == BuiltIn::None ? UnseenIcon() : BuiltInIcon(context_.form.Icon));
  windowHandle()->installEventFilter(this);
  controller_.Moved(geometry().left(), geometry().top());
}

QWidget* FormWindow::WidgetOf(const Control& control) const {
  const auto found = widgets_.find(&control);
  return found == widgets_.end() ? nullptr : &found->second->Widget();
}

void FormWindow::SetCaption(const std::string& caption) {
  // Qt treats "[*]" in a title as the modified-document placeholder; doubling escapes it.
  setWindowTitle(ToQt(caption).replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
}

void FormWindow::SetClientSize(Size client) {
  const QSize size(client.width, client.height);
  if (context_.form.Border == FormBorder::Sizable)
    resize(size);
  else
    setFixedSize(size);
}

void FormWindow::ControlsChanged() {
  const std::unordered_set<const Control*> present(context_.form.Controls.begin(), context_.form.Controls.end());
  std::erase_if(widgets_, [&](const auto& entry) {
    if (present.contains(entry.first)) return false;
    entry.second->Widget().hide();
    entry.second->Widget().deleteLater();
    return true;
  });
}

bool FormWindow::SyncControls() {
  const std::size_t before = widgets_.size();
  for (Control* control : context_.form.Controls) {
    const auto widget = widgets_.find(control);
    if (IsShown(*control)) {
      ControlWidget* shown = widget != widgets_.end() ? widget->second : Mirror(*control);
      if (shown != nullptr) shown->Sync();
    } else if (widget != widgets_.end() && widget->second->Widget().isHidden() == control->Visible) {
      widget->second->Widget().setVisible(control->Visible);
    }
  }
  const bool grown = widgets_.size() != before;
  if (grown) Restack();
  return grown;
}

ControlWidget* FormWindow::Mirror(Control& control) {
  QWidget* parent = this;
  if (control.Container != nullptr) {
    const auto container = widgets_.find(control.Container);
    ControlWidget* made = container != widgets_.end() ? container->second : Mirror(*control.Container);
    if (made != nullptr) parent = &made->Widget();
  }
  ControlWidget* widget = MakeControlWidget(control, context_, parent);
  if (widget == nullptr) return nullptr;
  widget->Widget().installEventFilter(this);
  widgets_.emplace(&control, widget);
  return widget;
}

void FormWindow::Restack() {
  for (const bool windowed : {true, false}) {
    for (const Control* control : context_.form.Controls) {
      const auto widget = widgets_.find(control);
      if (widget != widgets_.end() && widget->second->IsWindowed() == windowed) widget->second->Widget().lower();
    }
  }
}

void FormWindow::SetTimer(std::optional<int> milliseconds) {
  if (milliseconds)
    timer_.start(*milliseconds);
  else
    timer_.stop();
}

void FormWindow::CenterOnOwner() {
  const FrameMetrics own = MetricsOf(context_.form.Border);
  const FrameMetrics owners = MetricsOf(owner_->context_.form.Border);
  QRect outer(QPoint(), size() + QSize(2 * own.side, own.top + own.side));
  outer.moveCenter(owner_->geometry().adjusted(-owners.side, -owners.top, owners.side, owners.side).center());
  const QRect screen = owner_->screen()->availableGeometry();
  outer.moveLeft(std::max(screen.left(), std::min(outer.left(), screen.right() - outer.width() + 1)));
  outer.moveTop(std::max(screen.top(), std::min(outer.top(), screen.bottom() - outer.height() + 1)));
  setGeometry(QRect(outer.topLeft() + QPoint(own.side, own.top), size()));
}

void FormWindow::Focus(const Control* control) {
  QWidget* widget = control == nullptr ? nullptr : WidgetOf(*control);
  if (widget != nullptr) widget->setFocus(Qt::TabFocusReason);
}

const Control* FormWindow::FocusedControl() const {
  const auto* focused = dynamic_cast<const ControlWidget*>(focusWidget());
  return focused == nullptr ? nullptr : &focused->Subject();
}

void FormWindow::MarkForEnter(const CommandButton* button) {
  for (const auto& [control, widget] : widgets_) widget->MarkForEnter(control == button);
}

bool FormWindow::focusNextPrevChild(bool next) { return controller_.Tab(next); }

bool FormWindow::event(QEvent* event) {
  if (event->type() == QEvent::WindowDeactivate) LosePointerSoon();
  return PointerArea::event(event);
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  const auto* mouse = dynamic_cast<const QMouseEvent*>(event);
  if (mouse != nullptr && watched == windowHandle()) context_.pointerInWindow = mouse->position();
  if (type == QEvent::FocusIn || type == QEvent::FocusOut) {
    controller_.FocusChanged();
    update();  // repaints the focus rectangle
  }
  return PointerArea::eventFilter(watched, event);
}

void FormWindow::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.fillRect(event->rect(), ToQt(context_.desktop.ResolveColor(context_.form.BackColor)));
  const Control* focused = FocusedControl();
  const QWidget* widget = focusWidget();
  const bool isButton = dynamic_cast<const CommandButton*>(focused) != nullptr;
  if (focused == nullptr || isButton || widget == nullptr || !widget->hasFocus()) return;
  const Rectangle ring = FocusRing(*focused);
  painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
  painter.drawRect(ring.left + 1, ring.top + 1, ring.Width() - 2, ring.Height() - 2);
}

void FormWindow::resizeEvent(QResizeEvent* event) {
  controller_.Resized({event->size().width(), event->size().height()});
}

void FormWindow::moveEvent(QMoveEvent* /*event*/) { controller_.Moved(geometry().left(), geometry().top()); }

void FormWindow::hideEvent(QHideEvent* /*event*/) { LosePointerSoon(); }

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  controller_.Close();
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: controller_.Enter(); break;
    case Qt::Key_Escape: controller_.Escape(); break;
    default: controller_.FunctionKey(event->key() - Qt::Key_F1 + 1);
  }
}

}  // namespace sorvex
