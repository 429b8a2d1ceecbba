// SPDX-License-Identifier: MIT
// Surfaces, buttons, labels, images, lists, lines and shapes as widgets.
#include "platform/qt/control_widgets.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPaintEvent>
#include <QPainter>
#include <QPushButton>
#include <QShortcutEvent>
#include <algorithm>
#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "platform/qt/built_ins.h"
#include "platform/qt/images.h"
#include "platform/qt/text.h"
#include "platform/shown_value.h"

namespace sorvex {
namespace {

QRect ToQt(const Rectangle& r) { return {r.left, r.top, r.Width(), r.Height()}; }

// Moves the widget to `bounds` of its container's drawing area and gives it the control's visibility.
void Place(QWidget& widget, const Control& control, const QRect& bounds) {
  const int frame = control.Container == nullptr ? 0 : FrameWidth(control.Container->BorderStyle);
  const QRect moved = bounds.translated(frame, frame);
  if (widget.geometry() != moved) widget.setGeometry(moved);
  if (widget.isHidden() == control.Visible) widget.setVisible(control.Visible);
}

void AllowFocus(QWidget& widget, const Control& control) {
  widget.setFocusPolicy(control.TabIndex >= 0 ? Qt::StrongFocus : Qt::NoFocus);
}

// False while a modal box or form is open, which assistive technology does not check before pressing.
bool TakesInput(const QWidget& widget) {
  const QWidget* modal = QApplication::activeModalWidget();
  return modal == nullptr || modal == widget.window();
}

class SurfaceWidget final : public PointerArea, public ControlWidget {
 public:
  SurfaceWidget(PictureBox& surface, FormContext& context, QWidget* parent)
      : PointerArea(context, &surface, parent), ControlWidget(surface), control_(surface) {
    AllowFocus(*this, surface);
  }

  QWidget& Widget() override { return *this; }

  void Sync() override {
    Place(*this, control_, ToQt(PixelBounds(control_)));
    if (look_.Update(LookOf(control_)) || paintOwed_) update();
    if (name_.Update(control_.AccessibleName)) setAccessibleName(sorvex::ToQt(control_.AccessibleName));
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    RaisePaint();
    QPainter painter(this);
    const int frame = FrameWidth(control_.BorderStyle);
    const QRect inner = rect().adjusted(frame, frame, -frame, -frame);
    if (!inner.contains(event->rect())) PaintFrame(painter, inner);
    for (const QRect& part : event->region()) PaintImage(painter, inner, part & inner);
  }

 private:
  void RaisePaint() {
    if (control_.AutoRedraw || !control_.Paint) return;
    paintOwed_ = !context_.runner.MayRun();
    context_.runner.Run(control_.Paint);
  }

  void PaintFrame(QPainter& painter, const QRect& inner) const {
    // With fractional scaling a row of device pixels between frame and image may belong to neither.
    painter.fillRect(inner.adjusted(0, 0, 1, 1) & rect(), QColor(223, 223, 223));
    if (control_.BorderStyle == Frame::Flat) PaintEdge(painter, rect(), Qt::black, Qt::black);
    if (control_.BorderStyle != Frame::Sunken) return;
    PaintEdge(painter, rect(), QColor(128, 128, 128), QColor(255, 255, 255));
    PaintEdge(painter, rect().adjusted(1, 1, -1, -1), QColor(64, 64, 64), QColor(223, 223, 223));
  }

  // A 1-pixel border; the top-right and bottom-left corners have the lower color.
  static void PaintEdge(QPainter& painter, const QRect& r, const QColor& upper, const QColor& lower) {
    painter.fillRect(r.left(), r.top(), r.width() - 1, 1, upper);
    painter.fillRect(r.left(), r.top(), 1, r.height() - 1, upper);
    painter.fillRect(r.left(), r.bottom(), r.width(), 1, lower);
    painter.fillRect(r.right(), r.top(), 1, r.height(), lower);
  }

  void PaintImage(QPainter& painter, const QRect& inner, const QRect& part) {
    const Picture& picture = control_.PictureObject();
    const Bitmap* pixels = control_.AutoRedraw ? &control_.Image() : picture ? &picture->Pixels() : nullptr;
    const bool covers = pixels != nullptr && pixels->Extent() == Size{inner.width(), inner.height()};
    if (!covers) painter.fillRect(part, sorvex::ToQt(context_.desktop.ResolveColor(control_.BackColor)));
    if (pixels == nullptr) return;
    const QImage image = ViewOf(*pixels);
    const QRect source = part.translated(-inner.topLeft()) & image.rect();
    if (source.isEmpty()) return;
    if (devicePixelRatioF() == 1.0)
      painter.drawImage(source.topLeft() + inner.topLeft(), image, source);
    else
      PaintScaled(painter, image, source, inner.topLeft());
  }

  // Not Qt's own scaling, which may choose a neighboring pixel: a pointer position must refer to the pixel seen there.
  void PaintScaled(QPainter& painter, const QImage& image, const QRect& source, QPoint corner) {
    const double scale = devicePixelRatioF();
    const QPoint origin = mapTo(window(), corner);
    const auto firstOf = [scale](int logical) { return static_cast<int>(std::ceil(logical * scale - 0.5)); };
    const QRect seen = source.translated(origin);
    const QPoint first(firstOf(seen.left()), firstOf(seen.top()));
    const QSize size(firstOf(seen.right() + 1) - first.x(), firstOf(seen.bottom() + 1) - first.y());
    if (scaled_.width() < size.width() || scaled_.height() < size.height())
      scaled_ = QImage(size.expandedTo(scaled_.size()), QImage::Format_RGB32);
    columns_.resize(static_cast<std::size_t>(size.width()));
    for (int x = 0; x < size.width(); ++x)
      columns_[static_cast<std::size_t>(x)] =
          std::clamp(LogicalPixel(first.x() + x, scale) - origin.x(), 0, image.width() - 1);
    int above = -1;
    for (int y = 0; y < size.height(); ++y) {
      const int row = std::clamp(LogicalPixel(first.y() + y, scale) - origin.y(), 0, image.height() - 1);
      auto* to = reinterpret_cast<Pixel*>(scaled_.scanLine(y));
      const auto* from = reinterpret_cast<const Pixel*>(image.constScanLine(row));
      if (row == above)
        std::memcpy(to, scaled_.constScanLine(y - 1), columns_.size() * sizeof(Pixel));
      else
        std::ranges::transform(columns_, to, [from](int column) { return from[column]; });
      above = row;
    }
    painter.setWorldTransform(QTransform::fromScale(1 / scale, 1 / scale));
    painter.drawImage(first - QPointF(mapTo(window(), QPoint())) * scale, scaled_, QRect(QPoint(), size));
    painter.resetTransform();
  }

  PictureBox& control_;
  ShownValue<SurfaceLook> look_;
  ShownValue<std::string> name_;
  QImage scaled_;
  std::vector<int> columns_;  // for each column of scaled_: the image's column
  bool paintOwed_ = false;    // painted while no handler could run: the Paint event is deferred
};

class ButtonWidget final : public QPushButton, public ControlWidget {
 public:
  ButtonWidget(CommandButton& button, FormContext& context, QWidget* parent)
      : QPushButton(parent), ControlWidget(button), control_(button) {
    setAutoDefault(false);
    setCursor(Qt::ArrowCursor);
    setAttribute(Qt::WA_NoMousePropagation);
    AllowFocus(*this, button);
    connect(this, &QPushButton::clicked, this, [&] {
      if (TakesInput(*this)) context.runner.Run(button.Click);
    });
  }

  QWidget& Widget() override { return *this; }
  void MarkForEnter(bool marked) override { setDefault(marked); }

  void Sync() override {
    Place(*this, control_, ToQt(PixelBounds(control_)));
    if (caption_.Update(control_.Caption)) setText(sorvex::ToQt(control_.Caption));
    if (toolTip_.Update(control_.ToolTipText)) setToolTip(sorvex::ToQt(control_.ToolTipText));
  }

 protected:
  bool event(QEvent* event) override {
    if (event->type() != QEvent::Shortcut) return QPushButton::event(event);
    // Not animateClick, which would delay the click by 100 ms.
    setFocus(Qt::ShortcutFocusReason);
    click();
    return true;
  }

  void paintEvent(QPaintEvent* event) override {
    QPushButton::paintEvent(event);
    if (!hasFocus()) return;
    // Qt marks only the default button, not the focused one.
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::ButtonText), 1, Qt::DotLine));
    painter.drawRect(rect().adjusted(3, 3, -4, -4));
  }

  void keyPressEvent(QKeyEvent* event) override {
    // The form's window handles Enter.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
      event->ignore();
    else
      QPushButton::keyPressEvent(event);
  }

 private:
  CommandButton& control_;
  ShownValue<std::string> caption_;
  ShownValue<std::string> toolTip_;
};

/// A widget painted on its container and transparent for pointer events.
template <class Base>
class Drawn : public Base, public ControlWidget {
 public:
  Drawn(Control& control, QWidget* parent) : Base(parent), ControlWidget(control) {
    Base::setAttribute(Qt::WA_TransparentForMouseEvents);
  }
  QWidget& Widget() override { return *this; }
  bool IsWindowed() const override { return false; }
};

class LabelWidget final : public Drawn<QLabel> {
 public:
  LabelWidget(Label& label, FormContext& context, QWidget* parent)
      : Drawn(label, parent), control_(label), context_(context) {
    setTextFormat(Qt::PlainText);
  }

  void Click() override { context_.runner.Run(control_.Click); }

  void Sync() override {
    const QRect bounds = ToQt(PixelBounds(control_));
    const Style style{control_.ForeColor, control_.BackColor, control_.Transparent,
                      control_.WordWrap,  control_.Align,     bounds.size()};
    const bool newCaption = caption_.Update(control_.Caption);
    const bool newFont = font_.Update(control_.Font);
    if (newCaption) setText(sorvex::ToQt(control_.Caption));
    if (newFont) setFont(sorvex::ToQt(control_.Font));
    const bool newStyle = style_.Update(style);
    if (newCaption || newFont || newStyle) {
      MeasureText();
      update();
    }
    Place(*this, control_, QRect(bounds.topLeft(), bounds.size().expandedTo(textSize_)));
    if (toolTip_.Update(control_.ToolTipText)) setToolTip(sorvex::ToQt(control_.ToolTipText));
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    if (!control_.Transparent)
      painter.fillRect(rect(), sorvex::ToQt(context_.desktop.ResolveColor(control_.BackColor)));
    painter.setFont(font());
    painter.setPen(sorvex::ToQt(context_.desktop.ResolveColor(control_.ForeColor)));
    painter.drawText(rect(), TextFlags(control_.Align, control_.WordWrap), sorvex::ToQt(control_.PaintedText()));
  }

 private:
  struct Style {
    Color fore;
    Color back;
    bool transparent;
    bool wordWrap;
    Alignment align;
    QSize size;
    bool operator==(const Style&) const = default;
  };

  // An auto-size label shows its whole text even before it was resized to it.
  void MeasureText() {
    textSize_ = QSize(0, 0);
    if (!control_.AutoSize) return;
    const int wrapWidth = control_.WordWrap ? PixelBounds(control_).Width() : 0;
    const Size size = TextSize(control_.Font, control_.PaintedText(), wrapWidth);
    textSize_ = QSize(size.width, size.height);
  }

  Label& control_;
  FormContext& context_;
  ShownValue<std::string> caption_;
  ShownValue<Font> font_;
  ShownValue<Style> style_;
  ShownValue<std::string> toolTip_;
  QSize textSize_{0, 0};
};

class ImageWidget final : public Drawn<QWidget> {
 public:
  ImageWidget(Image& image, FormContext& context, QWidget* parent)
      : Drawn(image, parent), control_(image), context_(context) {}

  void Sync() override {
    Place(*this, control_, ToQt(PixelBounds(control_)));
    if (picture_.Update(control_.Picture)) update();
    if (toolTip_.Update(control_.ToolTipText)) setToolTip(sorvex::ToQt(control_.ToolTipText));
  }

  void Click() override {
    if (!TakesInput(*this)) return;
    const float x = control_.Width / 2;
    const float y = control_.Height / 2;
    context_.runner.Run([&] {
      if (control_.Click) return control_.Click();
      if (control_.MouseDown) control_.MouseDown(kLeftButton, 0, x, y);
      if (control_.MouseUp) control_.MouseUp(kLeftButton, 0, x, y);
    });
  }

  void Do(const Command& command) override {
    if (TakesInput(*this)) context_.runner.Run(command.Action);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    if (control_.Picture == BuiltIn::None) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(rect(), BuiltInImage(control_.Picture, (QSizeF(size()) * devicePixelRatioF()).toSize()));
  }

 private:
  Image& control_;
  FormContext& context_;
  ShownValue<BuiltIn> picture_;
  ShownValue<std::string> toolTip_;
};

class LineWidget final : public Drawn<QWidget> {
 public:
  LineWidget(Line& line, QWidget* parent) : Drawn(line, parent), control_(line) {}

  void Sync() override {
    const QRect bounds = ToQt(PixelBounds(control_));
    Place(*this, control_, QRect(bounds.topLeft(), bounds.size() + QSize(1, 1)));
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.setPen(Qt::black);
    painter.drawLine(0, 0, width() - 1, height() - 1);
  }

 private:
  Line& control_;
};

class ShapeWidget final : public Drawn<QWidget> {
 public:
  ShapeWidget(Shape& shape, FormContext& context, QWidget* parent)
      : Drawn(shape, parent), control_(shape), context_(context) {}

  void Sync() override {
    Place(*this, control_, ToQt(PixelBounds(control_)));
    if (color_.Update(control_.FillColor)) update();
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter(this).fillRect(rect(), sorvex::ToQt(context_.desktop.ResolveColor(control_.FillColor)));
  }

 private:
  Shape& control_;
  FormContext& context_;
  ShownValue<Color> color_;
};

class ListWidget final : public QListWidget, public ControlWidget {
 public:
  ListWidget(ListBox& list, FormContext& context, QWidget* parent)
      : QListWidget(parent), ControlWidget(list), control_(list) {
    setCursor(Qt::ArrowCursor);
    setAttribute(Qt::WA_NoMousePropagation);
    setEditTriggers(NoEditTriggers);
    AllowFocus(*this, list);
    setAccessibleName(sorvex::ToQt(list.AccessibleName));
    connect(this, &QListWidget::itemSelectionChanged, this, [this] {
      if (!syncing_) control_.ListIndex = SelectedRow();
    });
    connect(this, &QListWidget::itemDoubleClicked, this, [&] { context.runner.Run(list.DoubleClick); });
  }

  QWidget& Widget() override { return *this; }

  void Sync() override {
    Place(*this, control_, ToQt(PixelBounds(control_)));
    if (toolTip_.Update(control_.ToolTipText)) setToolTip(sorvex::ToQt(control_.ToolTipText));
    syncing_ = true;
    if (list_.Update(control_.List)) {
      clear();
      for (const std::string& entry : control_.List) addItem(sorvex::ToQt(entry));
    }
    if (SelectedRow() != control_.ListIndex) {
      clearSelection();
      if (control_.ListIndex >= 0) setCurrentRow(control_.ListIndex);
    }
    syncing_ = false;
  }

 protected:
  void focusInEvent(QFocusEvent* event) override {
    QListWidget::focusInEvent(event);
    // Qt makes the first row current without selecting it: it would look selected, and Down would skip it.
    if (SelectedRow() < 0) setCurrentRow(-1);
  }

 private:
  int SelectedRow() const {
    const QModelIndexList selected = selectedIndexes();
    return selected.isEmpty() ? -1 : selected.front().row();
  }

  ListBox& control_;
  ShownValue<std::vector<std::string>> list_;
  ShownValue<std::string> toolTip_;
  bool syncing_ = false;
};

}  // namespace

ControlWidget* MakeControlWidget(Control& control, FormContext& context, QWidget* parent) {
  if (auto* surface = dynamic_cast<PictureBox*>(&control)) return new SurfaceWidget(*surface, context, parent);
  if (auto* button = dynamic_cast<CommandButton*>(&control)) return new ButtonWidget(*button, context, parent);
  if (auto* label = dynamic_cast<Label*>(&control)) return new LabelWidget(*label, context, parent);
  if (auto* image = dynamic_cast<Image*>(&control)) return new ImageWidget(*image, context, parent);
  if (auto* list = dynamic_cast<ListBox*>(&control)) return new ListWidget(*list, context, parent);
  if (auto* line = dynamic_cast<Line*>(&control)) return new LineWidget(*line, parent);
  if (auto* shape = dynamic_cast<Shape*>(&control)) return new ShapeWidget(*shape, context, parent);
  return nullptr;
}

}  // namespace sorvex
