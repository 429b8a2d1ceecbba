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
#include <cstdint>
#include <unordered_set>
#include <utility>

#include "platform/qt/built_ins.h"
#include "platform/qt/text.h"

namespace sorvex {
namespace {

Qt::WindowFlags FlagsOf(const Form& form, bool owned) {
  // A tool window stays off the task bar; dialogs do as their owner's.
  Qt::WindowFlags flags = !owned ? Qt::Window : form.Border == FormBorder::FixedToolWindow ? Qt::Tool : Qt::Dialog;
  flags |= Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
  if (form.MinButton) flags |= Qt::WindowMinimizeButtonHint;
  return flags;
}

// Without one a window would be shown with its owner's, by the toolkit and by window managers.
QIcon UnseenIcon() {
  QPixmap pixels(16, 16);
  pixels.fill(Qt::transparent);
  return pixels;
}

// "[*]" in a title is the toolkit's mark for a changed document, unless it is doubled.
QString TitleOf(const std::string& caption) {
  return ToQt(caption).replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
}

}  // namespace

FormWindow::FormWindow(std::unique_ptr<FormContext> context, FormWindow* owner)
    : PointerArea(*context, nullptr, owner, FlagsOf(context->form, owner != nullptr)),
      ownedContext_(std::move(context)),
      owner_(owner),
      background_(context_.form.BackColor) {
  if (owner != nullptr) setWindowModality(Qt::ApplicationModal);
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  connect(&timer_, &QTimer::timeout, this, [this] { RunTimers(); });
}

void FormWindow::Sync() {
  SyncWindow();
  SyncControls();
  ArmTimer();
}

void FormWindow::Open() {
  Sync();
  Focus(NextInTabOrder(context_.form, nullptr, true));
  if (context_.form.CenterOnOwner && owner_ != nullptr) CenterOnOwner();
  show();
  // The window manager is at work meanwhile, so this does not delay the first paint.
  setWindowIcon(context_.form.Icon == BuiltIn::None ? UnseenIcon() : BuiltInIcon(context_.form.Icon));
  windowHandle()->installEventFilter(this);
  KeepPosition();
}

void FormWindow::Unload() {
  context_.handlers.Run([&form = context_.form] {
    if (form.Unload) form.Unload();
    form.Loaded = false;
  });
}

void FormWindow::RunTimers() {
  const auto due = [this](Long now) { return NextTimer(context_.form, now) == 0; };
  if (!due(context_.desktop.TickCount())) return;
  context_.handlers.Run([this] { RunDueTimers(context_.form, context_.desktop.TickCount()); });
}

QWidget* FormWindow::WidgetOf(const Control& control) const {
  const auto found = widgets_.find(&control);
  return found == widgets_.end() ? nullptr : &found->second->Widget();
}

void FormWindow::SyncWindow() {
  const Form& form = context_.form;
  if (caption_ != form.Caption) {
    caption_ = form.Caption;
    setWindowTitle(TitleOf(caption_));
  }
  if (background_ != form.BackColor) {
    background_ = form.BackColor;
    update();
  }
  if (FormSize() == seenSize_) return;
  setSize_ = seenSize_ = FormSize();
  const Size client = ClientSize(form, context_.desktop.TwipsPerPixel());
  requested_ = QSize(client.width, client.height);
  if (form.Border == FormBorder::Sizable)
    resize(requested_);
  else
    setFixedSize(requested_);
}

void FormWindow::SyncControls() {
  const Form& form = context_.form;
  if (mirrored_ != form.Controls) {
    DropWidgetsOfGoneControls();
    mirrored_ = form.Controls;
  }
  LeaveGoneFocus();
  const std::size_t before = widgets_.size();
  for (Control* control : form.Controls) {
    const auto widget = widgets_.find(control);
    if (IsShown(*control)) {
      ControlWidget* shown = widget != widgets_.end() ? widget->second : Mirror(*control);
      if (shown != nullptr) shown->Sync();
    } else if (widget != widgets_.end() && widget->second->Widget().isHidden() == control->Visible) {
      widget->second->Widget().setVisible(control->Visible);
    }
  }
  const bool grown = widgets_.size() != before;
  if (!grown) return;
  Restack();
  MarkFocus();
}

void FormWindow::DropWidgetsOfGoneControls() {
  const std::unordered_set<const Control*> present(context_.form.Controls.begin(), context_.form.Controls.end());
  std::erase_if(widgets_, [&](const auto& entry) {
    if (present.contains(entry.first)) return false;
    entry.second->Widget().hide();
    entry.second->Widget().deleteLater();
    return true;
  });
}

ControlWidget* FormWindow::Mirror(Control& control) {
  QWidget* parent = this;
  if (control.Container != nullptr) {
    const auto container = widgets_.find(control.Container);
    ControlWidget* made = container != widgets_.end() ? container->second : Mirror(*control.Container);
    parent = &made->Widget();
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

void FormWindow::ArmTimer() {
  const Long now = context_.desktop.TickCount();
  const std::optional<int> next = NextTimer(context_.form, now);
  if (!next) {
    timer_.stop();
    return;
  }
  const auto due = static_cast<std::uint32_t>(now) + static_cast<std::uint32_t>(*next);
  if (timer_.isActive() && due == timerDue_) return;
  timerDue_ = due;
  timer_.start(*next);
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

void FormWindow::KeepPosition() {
  const FrameMetrics frame = MetricsOf(context_.form.Border);
  const TwipRatio twips = context_.desktop.TwipsPerPixel();
  context_.form.Left = static_cast<float>(geometry().left() - frame.side) * twips.across;
  context_.form.Top = static_cast<float>(geometry().top() - frame.top) * twips.down;
}

void FormWindow::Focus(const Control* control) {
  QWidget* widget = control == nullptr ? nullptr : WidgetOf(*control);
  if (widget != nullptr) widget->setFocus(Qt::TabFocusReason);
}

Control* FormWindow::FocusedControl() const {
  const auto* focused = dynamic_cast<const ControlWidget*>(focusWidget());
  return focused == nullptr ? nullptr : &focused->Subject();
}

void FormWindow::LeaveGoneFocus() {
  const Control* focused = FocusedControl();
  if (focused != nullptr && !IsShown(*focused)) Focus(FocusAfter(context_.form, *focused));
}

void FormWindow::MarkFocus() {
  const CommandButton* marked = ButtonForEnter(context_.form, FocusedControl());
  for (const auto& [control, widget] : widgets_) widget->MarkForEnter(control == marked);
  update();
}

bool FormWindow::focusNextPrevChild(bool next) {
  Control* control = NextInTabOrder(context_.form, FocusedControl(), next);
  Focus(control);
  return control != nullptr;
}

bool FormWindow::event(QEvent* event) {
  if (event->type() == QEvent::WindowDeactivate) LosePointerSoon();
  return PointerArea::event(event);
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
  const auto* mouse = dynamic_cast<const QMouseEvent*>(event);
  if (mouse != nullptr && watched == windowHandle()) context_.pointerInWindow = mouse->position();
  // Those of the controls' widgets: no handler runs when the focus moves, so nothing else says so.
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) MarkFocus();
  return PointerArea::eventFilter(watched, event);
}

void FormWindow::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.fillRect(event->rect(), ToQt(context_.desktop.ResolveColor(context_.form.BackColor)));
  const Control* focused = FocusedControl();
  if (focused == nullptr || dynamic_cast<const CommandButton*>(focused) != nullptr || !focusWidget()->hasFocus())
    return;
  const Rectangle ring = FocusRing(*focused);
  painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
  painter.drawRect(ring.left + 1, ring.top + 1, ring.Width() - 2, ring.Height() - 2);
}

void FormWindow::resizeEvent(QResizeEvent* event) {
  Form& form = context_.form;
  if (event->size() == requested_) {
    form.Width = setSize_.width;
    form.Height = setSize_.height;
  } else {
    SetClientSize(form, {event->size().width(), event->size().height()}, context_.desktop.TwipsPerPixel());
  }
  seenSize_ = FormSize();
}

void FormWindow::moveEvent(QMoveEvent* /*event*/) { KeepPosition(); }

void FormWindow::hideEvent(QHideEvent* /*event*/) { LosePointerSoon(); }

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  Unload();
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  if (const Command* command = CommandForFunctionKey(context_.form, event->key() - Qt::Key_F1 + 1))
    return context_.handlers.Run(command->Action);
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!enter && event->key() != Qt::Key_Escape) return;
  if (ClosesByEnterAndEscape(context_.form)) return Unload();
  const auto widget =
      widgets_.find(enter ? ButtonForEnter(context_.form, FocusedControl()) : ButtonForEscape(context_.form));
  if (widget != widgets_.end()) widget->second->Click();
}

}  // namespace sorvex
