// SPDX-License-Identifier: MIT
// Keeping the page's elements in step with a form's controls, and handling the page's events.
#include "platform/web/form_window.h"

#include <algorithm>
#include <array>
#include <unordered_set>

#include "platform/desktop.h"
#include "platform/web/built_ins.h"

namespace sorvex {
namespace {

ControlKind KindOf(const Control& control) {
  if (dynamic_cast<const PictureBox*>(&control) != nullptr) return ControlKind::Surface;
  if (dynamic_cast<const CommandButton*>(&control) != nullptr) return ControlKind::Button;
  if (const auto* label = dynamic_cast<const Label*>(&control))
    return label->Click ? ControlKind::Link : ControlKind::Label;
  if (const auto* image = dynamic_cast<const Image*>(&control))
    return image->Click || !image->Commands.empty() ? ControlKind::Press : ControlKind::Image;
  if (dynamic_cast<const ListBox*>(&control) != nullptr) return ControlKind::List;
  return dynamic_cast<const Line*>(&control) != nullptr ? ControlKind::Line : ControlKind::Shape;
}

// Labels and images stand behind the windowed controls of their container.
int DepthOf(const Form& form, const Control& control, ControlKind kind) {
  constexpr int windowed = 200'000;
  constexpr int windowless = 100'000;
  const bool isWindowed = kind == ControlKind::Surface || kind == ControlKind::Button || kind == ControlKind::List;
  const auto place = std::find(form.Controls.begin(), form.Controls.end(), &control) - form.Controls.begin();
  return (isWindowed ? windowed : windowless) - static_cast<int>(place);
}

void SetText(ShownValue<std::string>& shown, const std::string& text, int element, PageText which) {
  if (shown.Update(text)) PageSetText(element, which, text.c_str());
}

std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + '\n';
  return text;
}

std::string CommandsOf(const Image& image) {
  std::string text;
  for (const Command& command : image.Commands)
    text += command.Name + "\tF" + std::to_string(command.FunctionKey) + '\n';
  return text;
}

}  // namespace

FormWindow::FormWindow(int id, Form& form, bool modal, Desktop& desktop, HandlerRunner& runner)
    : id_(id), form_(form), desktop_(desktop), runner_(runner), lastElement_(id) {
  PageOpenWindow(id, modal);
}

FormWindow::~FormWindow() { PageCloseWindow(id_); }

int FormWindow::ElementOf(const Control& control) const {
  const auto found = elements_.find(&control);
  return found == elements_.end() ? 0 : found->second.id;
}

Control* FormWindow::Find(int element) const {
  const auto found = controls_.find(element);
  return found == controls_.end() ? nullptr : found->second;
}

const Control* FormWindow::FocusedControl() const { return Find(PageFocused(id_)); }

void FormWindow::Focus(const Control* control) {
  if (const int element = control == nullptr ? 0 : ElementOf(*control); element != 0) PageFocus(element);
}

void FormWindow::MarkForEnter(const CommandButton* button) {
  PageMark(id_, button == nullptr ? 0 : ElementOf(*button));
}

void FormWindow::BackgroundChanged() { PageSetBackground(id_, desktop_.ResolveColor(form_.BackColor)); }

void FormWindow::ControlsChanged() {
  const std::unordered_set<const Control*> present(form_.Controls.begin(), form_.Controls.end());
  for (auto each = elements_.begin(); each != elements_.end();) {
    const bool gone = !present.contains(each->first);
    if (gone) {
      PageRemove(each->second.id);
      controls_.erase(each->second.id);
    }
    each = gone ? elements_.erase(each) : std::next(each);
  }
}

bool FormWindow::SyncControls() {
  const std::size_t before = elements_.size();
  for (std::size_t i = 0; i < form_.Controls.size(); ++i) {
    Control& control = *form_.Controls[i];
    if (IsShown(control)) {
      if (dynamic_cast<const Timer*>(&control) == nullptr) Sync(control, Make(control));
    } else if (const auto made = elements_.find(&control); made != elements_.end()) {
      Sync(control, made->second);
    }
  }
  return elements_.size() != before;
}

Element& FormWindow::Make(Control& control) {
  if (const auto made = elements_.find(&control); made != elements_.end()) return made->second;
  const int container = control.Container == nullptr ? 0 : Make(*control.Container).id;
  const int id = ++lastElement_;
  const ControlKind kind = KindOf(control);
  PageMake(id, kind, id_, container, DepthOf(form_, control, kind), control.TabIndex);
  controls_.emplace(id, &control);
  return elements_.emplace(&control, Element{.id = id}).first->second;
}

void FormWindow::Sync(Control& control, Element& element) {
  const Rectangle bounds = PixelBounds(control);
  const bool moved = element.bounds.Update(bounds);
  if (element.visible.Update(control.Visible) || moved) {
    const int frame = control.Container == nullptr ? 0 : FrameWidth(control.Container->BorderStyle);
    PagePlace(element.id, bounds.left + frame, bounds.top + frame, bounds.Width(), bounds.Height(), control.Visible);
  }
  if (!IsShown(control)) return;
  SetText(element.toolTip, control.ToolTipText, element.id, PageText::ToolTip);
  SetText(element.name, control.AccessibleName, element.id, PageText::Name);
  if (element.cursor.Update(control.MousePointer))
    PageSetText(element.id, PageText::Cursor, FileOf(control.MousePointer));
  if (auto* surface = dynamic_cast<PictureBox*>(&control)) SyncSurface(*surface, element);
  if (const auto* button = dynamic_cast<const CommandButton*>(&control))
    SetText(element.caption, button->Caption, element.id, PageText::Caption);
  if (const auto* label = dynamic_cast<const Label*>(&control)) SyncLabel(*label, element);
  if (const auto* image = dynamic_cast<const Image*>(&control)) SyncImage(*image, element);
  if (const auto* list = dynamic_cast<const ListBox*>(&control)) SyncList(*list, element);
  if (const auto* shape = dynamic_cast<const Shape*>(&control);
      shape != nullptr && element.foreground.Update(shape->FillColor))
    PageSetStyle(element.id, kBlack, desktop_.ResolveColor(shape->FillColor), 0, false, 0);
}

void FormWindow::SyncSurface(PictureBox& surface, Element& element) {
  if (!element.look.Update(LookOf(surface))) return;
  if (!surface.AutoRedraw) runner_.Run(surface.Paint);
  PageSetFrame(element.id, FrameWidth(surface.BorderStyle), desktop_.ResolveColor(surface.BackColor));
  Paint(surface, std::array{Rectangle::At(0, 0, surface.ScaleSize())});
}

void FormWindow::Paint(const PictureBox& surface, std::span<const Rectangle> parts) {
  const Picture& picture = surface.PictureObject();
  const Bitmap* image = surface.AutoRedraw ? &surface.Image() : picture ? &picture->Pixels() : nullptr;
  const int element = ElementOf(surface);
  if (image == nullptr || element == 0) return;
  for (const Rectangle& each : parts) {
    const Rectangle part = Intersection(each, image->Bounds());
    if (part.Empty()) continue;
    swapped_.resize(static_cast<std::size_t>(part.Width()) * static_cast<std::size_t>(part.Height()));
    Pixel* to = swapped_.data();
    for (int y = part.top; y < part.bottom; ++y)
      to = std::transform(image->Row(y) + part.left, image->Row(y) + part.right, to, Swapped);
    PagePaint(element, swapped_.data(), part.left, part.top, part.Width(), part.Height());
  }
}

void FormWindow::SyncLabel(const Label& label, Element& element) {
  SetText(element.caption, label.Caption, element.id, PageText::Caption);
  if (element.font.Update(label.Font))
    PageSetFont(element.id, label.Font.family.c_str(), PixelsOf(label.Font), label.Font.weight, label.Font.underlined);
  // Of a label's style only the color changes while it is shown.
  if (!element.foreground.Update(label.ForeColor)) return;
  PageSetStyle(element.id, desktop_.ResolveColor(label.ForeColor),
               label.Transparent ? 0 : desktop_.ResolveColor(label.BackColor), static_cast<int>(label.Align),
               label.WordWrap, label.PaintedTo > 0 ? ToPixels(label.PaintedTo - label.Left) : 0);
}

void FormWindow::SyncImage(const Image& image, Element& element) {
  if (!element.picture.Update(image.Picture)) return;
  PageSetText(element.id, PageText::Picture, FileOf(image.Picture));
  PageSetText(element.id, PageText::Commands, CommandsOf(image).c_str());
}

void FormWindow::SyncList(const ListBox& list, Element& element) {
  const bool listed = element.list.Update(list.List);
  if (listed) PageSetText(element.id, PageText::Entries, Joined(list.List).c_str());
  if (element.selected.Update(list.ListIndex) || listed) PageSelect(element.id, list.ListIndex);
}

void FormWindow::LosePointer() {
  runner_.Run([this] { pointer_.Lose(); });
}

void FormWindow::Handle(const PageEvent& event) {
  Control* control = Find(event.control);
  switch (event.kind) {
    case PageEventKind::Moved: return controller_.Moved(event.x, event.y);
    case PageEventKind::Move:
    case PageEventKind::Press:
    case PageEventKind::Release: return HandlePointer(event);
    case PageEventKind::Lose: return LosePointer();
    case PageEventKind::Click: return control == nullptr ? void() : Click(*control);
    case PageEventKind::Command:
      if (const auto* image = dynamic_cast<const Image*>(control))
        runner_.Run(image->Commands.at(static_cast<std::size_t>(event.detail)).Action);
      return;
    case PageEventKind::Select:
    case PageEventKind::Choose:
      if (auto* list = dynamic_cast<ListBox*>(control)) {
        list->ListIndex = event.detail;
        if (event.kind == PageEventKind::Choose) runner_.Run(list->DoubleClick);
      }
      return;
    case PageEventKind::Enter: controller_.Enter(); return;
    case PageEventKind::Escape: controller_.Escape(); return;
    case PageEventKind::Function: controller_.FunctionKey(event.detail); return;
    case PageEventKind::AccessKey: controller_.AccessKey(event.text); return;
    case PageEventKind::Focus: return controller_.FocusChanged();
    case PageEventKind::Close: return controller_.Close();
    case PageEventKind::BoxClosed: return;
  }
}

void FormWindow::HandlePointer(const PageEvent& event) {
  auto* surface = dynamic_cast<PictureBox*>(Find(event.control));
  const auto button = static_cast<Integer>(event.detail);
  const auto shift = static_cast<Integer>(event.shift);
  const auto x = static_cast<float>(event.x);
  const auto y = static_cast<float>(event.y);
  runner_.Run([&] {
    if (event.kind == PageEventKind::Move) pointer_.Move(surface, shift, x, y);
    if (event.kind == PageEventKind::Press) pointer_.Press(surface, button, shift, x, y);
    if (event.kind == PageEventKind::Release) pointer_.Release(button, shift, x, y);
  });
}

void FormWindow::Click(Control& control) {
  if (const auto* button = dynamic_cast<const CommandButton*>(&control)) runner_.Run(button->Click);
  if (const auto* label = dynamic_cast<const Label*>(&control)) runner_.Run(label->Click);
  const auto* image = dynamic_cast<const Image*>(&control);
  if (image == nullptr) return;
  runner_.Run([image] {
    if (image->Click) return image->Click();
    if (image->MouseDown) image->MouseDown(kLeftButton, 0, image->Width / 2, image->Height / 2);
    if (image->MouseUp) image->MouseUp(kLeftButton, 0, image->Width / 2, image->Height / 2);
  });
}

}  // namespace sorvex
