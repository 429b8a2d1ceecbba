// SPDX-License-Identifier: MIT
// Front-end independent pointer capture, focus rules and timers.
#include "platform/input.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace sorvex {
namespace {

void Raise(const Event& event) {
  if (event) event();
}

void Raise(const PointerEvent& event, Integer button, Integer shift, float x, float y) {
  if (event) event(button, shift, x, y);
}

// Converts a coordinate of the pressed surface to one of `control`, which is that surface or a label or image on it.
float LocalX(const Control& control, float x) {
  return dynamic_cast<const PictureBox*>(&control) ? x : x - control.Left;
}
float LocalY(const Control& control, float y) {
  return dynamic_cast<const PictureBox*>(&control) ? y : y - control.Top;
}

void RaiseUp(Control* target, Integer button, Integer shift, float x, float y) {
  if (auto* surface = dynamic_cast<PictureBox*>(target)) Raise(surface->MouseUp, button, shift, x, y);
  if (auto* image = dynamic_cast<Image*>(target))
    Raise(image->MouseUp, button, shift, LocalX(*image, x), LocalY(*image, y));
}

std::uint32_t Elapsed(const Timer& timer, Long now) {
  return static_cast<std::uint32_t>(now) - static_cast<std::uint32_t>(timer.Started);
}

bool Runs(const Timer& timer) { return timer.Enabled && timer.Interval > 0; }

}  // namespace

Control* WindowlessControlAt(const Form& form, const PictureBox* surface, float x, float y) {
  const auto hit = std::find_if(form.Controls.begin(), form.Controls.end(), [&](const Control* control) {
    const bool windowless =
        dynamic_cast<const Label*>(control) != nullptr || dynamic_cast<const Image*>(control) != nullptr;
    return windowless && control->Visible && control->Container == surface &&
           PixelBounds(*control).Contains(static_cast<int>(x), static_cast<int>(y));
  });
  return hit == form.Controls.end() ? nullptr : *hit;
}

void PointerInput::Press(PictureBox* surface, Integer button, Integer shift, float x, float y) {
  if (down_ == 0) {
    target_ = WindowlessControlAt(form_, surface, x, y);
    if (target_ == nullptr) target_ = surface;
  }
  down_ = static_cast<Integer>(down_ | button);
  shift_ = shift;
  x_ = x;
  y_ = y;
  if (auto* pressed = dynamic_cast<PictureBox*>(target_)) Raise(pressed->MouseDown, button, shift, x, y);
  if (auto* image = dynamic_cast<Image*>(target_))
    Raise(image->MouseDown, button, shift, LocalX(*image, x), LocalY(*image, y));
}

void PointerInput::Move(PictureBox* surface, Integer shift, float x, float y) {
  shift_ = shift;
  x_ = x;
  y_ = y;
  Control* target = target_;
  if (down_ == 0) {
    target = WindowlessControlAt(form_, surface, x, y);
    if (target == nullptr) target = surface;
  }
  if (auto* entered = dynamic_cast<PictureBox*>(target)) Raise(entered->MouseMove, down_, shift, x, y);
}

void PointerInput::Release(Integer button, Integer shift, float x, float y) {
  if ((down_ & button) == 0) return;
  down_ = static_cast<Integer>(down_ & ~button);
  Control* released = target_;
  if (down_ == 0) target_ = nullptr;
  RaiseUp(released, button, shift, x, y);
  if (button != kLeftButton || released == nullptr ||
      !PixelBounds(*released).Contains(static_cast<int>(x), static_cast<int>(y)))
    return;
  if (auto* image = dynamic_cast<Image*>(released)) Raise(image->Click);
  if (auto* label = dynamic_cast<Label*>(released)) Raise(label->Click);
}

void PointerInput::Lose() {
  if (down_ == 0) return;
  const auto lowest = static_cast<Integer>(down_ & -down_);
  down_ = 0;
  Control* lost = target_;
  target_ = nullptr;
  RaiseUp(lost, lowest, shift_, x_, y_);
}

std::vector<Control*> TabOrder(const Form& form) {
  std::vector<Control*> order;
  std::copy_if(form.Controls.begin(), form.Controls.end(), std::back_inserter(order),
               [](const Control* control) { return control->TabIndex >= 0 && IsShown(*control); });
  std::sort(order.begin(), order.end(), [](const Control* a, const Control* b) { return a->TabIndex < b->TabIndex; });
  return order;
}

Control* NextInTabOrder(const Form& form, const Control* focus, bool forward) {
  const std::vector<Control*> order = TabOrder(form);
  if (order.empty()) return nullptr;
  const auto count = static_cast<std::ptrdiff_t>(order.size());
  const auto place = std::find(order.begin(), order.end(), focus) - order.begin();
  return order[static_cast<std::size_t>(place == count ? 0 : (place + (forward ? 1 : count - 1)) % count)];
}

CommandButton* ButtonForEnter(const Form& form, const Control* focus) {
  CommandButton* chosen = nullptr;
  for (Control* control : form.Controls) {
    auto* button = dynamic_cast<CommandButton*>(control);
    if (button == nullptr || !IsShown(*button)) continue;
    if (button == focus) return button;
    if (button->Default) chosen = button;
  }
  return chosen;
}

CommandButton* ButtonForEscape(const Form& form) {
  for (Control* control : form.Controls) {
    auto* button = dynamic_cast<CommandButton*>(control);
    if (button != nullptr && button->Cancel && IsShown(*button)) return button;
  }
  return nullptr;
}

bool ClosesByEnterAndEscape(const Form& form) {
  return std::none_of(form.Controls.begin(), form.Controls.end(),
                      [](const Control* control) { return dynamic_cast<const CommandButton*>(control) != nullptr; });
}

const Command* CommandForFunctionKey(const Form& form, int key) {
  for (const Control* control : form.Controls) {
    const auto* image = dynamic_cast<const Image*>(control);
    if (image == nullptr) continue;
    const auto command = std::find_if(image->Commands.begin(), image->Commands.end(),
                                      [key](const Command& each) { return each.FunctionKey == key; });
    if (command != image->Commands.end()) return &*command;
  }
  return nullptr;
}

Control* FocusAfter(const Form& form, const Control& gone) {
  const std::vector<Control*> order = TabOrder(form);
  if (order.empty()) return nullptr;
  const auto after = std::find_if(order.begin(), order.end(),
                                  [&](const Control* control) { return control->TabIndex >= gone.TabIndex; });
  return after == order.begin() ? order.front() : *std::prev(after);
}

Rectangle FocusRing(const Control& control) {
  constexpr int kDistance = 3;
  const Rectangle r = PixelBounds(control);
  return {r.left - kDistance, r.top - kDistance, r.right + kDistance, r.bottom + kDistance};
}

void RunDueTimers(Form& form, Long now) {
  std::vector<Timer*> due;  // collected first, because a handler may change form.Controls
  for (Control* control : form.Controls) {
    auto* timer = dynamic_cast<Timer*>(control);
    if (timer != nullptr && Runs(*timer) && Elapsed(*timer, now) >= static_cast<std::uint32_t>(timer->Interval))
      due.push_back(timer);
  }
  for (Timer* timer : due) {
    timer->Started = now;
    Raise(timer->Tick);
  }
}

std::optional<int> NextTimer(const Form& form, Long now) {
  std::optional<int> next;
  for (const Control* control : form.Controls) {
    const auto* timer = dynamic_cast<const Timer*>(control);
    if (timer == nullptr || !Runs(*timer)) continue;
    const std::uint32_t elapsed = Elapsed(*timer, now);
    const auto interval = static_cast<std::uint32_t>(timer->Interval);
    const int left = elapsed >= interval ? 0 : static_cast<int>(interval - elapsed);
    next = std::min(next.value_or(left), left);
  }
  return next;
}

}  // namespace sorvex
