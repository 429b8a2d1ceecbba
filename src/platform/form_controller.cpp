// SPDX-License-Identifier: MIT
// Front-end independent behavior of a shown form: focus, keys, timers, size and closing.
#include "platform/form_controller.h"

#include <tuple>

#include "base/text.h"
#include "platform/desktop.h"
#include "platform/input.h"

namespace sorvex {
namespace {

bool HasAccessKey(const CommandButton& button, std::string_view character) {
  const std::string_view caption = button.Caption;
  const std::size_t mark = caption.find('&');
  return mark != caption.npos && !character.empty() &&
         EqualIgnoringCase(caption.substr(mark + 1, character.size()), character);
}

}  // namespace

void FormController::Sync() {
  if (caption_.Update(form_.Caption)) view_.SetCaption(form_.Caption);
  if (background_.Update(form_.BackColor)) view_.BackgroundChanged();
  SyncSize();
  if (controls_ != form_.Controls) {
    view_.ControlsChanged();
    controls_ = form_.Controls;
  }
  MoveFocusOffHidden();
  if (view_.SyncControls()) marked_ = {};
  FocusChanged();
  ArmTimer();
}

void FormController::SyncSize() {
  if (FormSize() == seenSize_) return;
  setSize_ = seenSize_ = FormSize();
  requested_ = ClientSize(form_, desktop_.TwipsPerPixel());
  view_.SetClientSize(requested_);
}

void FormController::MoveFocusOffHidden() {
  const Control* focused = view_.FocusedControl();
  if (focused != nullptr && !IsShown(*focused)) MoveFocus(FocusAfter(form_, *focused));
}

void FormController::ArmTimer() {
  const Long now = desktop_.TickCount();
  const std::optional<int> next = NextTimer(form_, now);
  std::optional<std::uint32_t> due;
  if (next) due = static_cast<std::uint32_t>(now) + static_cast<std::uint32_t>(*next);
  if (due == timerDue_) return;
  timerDue_ = due;
  view_.SetTimer(next);
}

void FormController::RunTimers() {
  if (NextTimer(form_, desktop_.TickCount()) != 0) return;
  runner_.Run([this] { RunDueTimers(form_, desktop_.TickCount()); });
}

void FormController::TimerFired() {
  // The timer may have fired early: set it again for the rest of the interval.
  timerDue_.reset();
  RunTimers();
  ArmTimer();
}

void FormController::FocusFirst() {
  if (const Control* first = NextInTabOrder(form_, nullptr, true)) MoveFocus(first);
}

void FormController::FocusChanged() {
  const CommandButton* button = ButtonForEnter(form_, view_.FocusedControl());
  if (marked_.Update(button)) view_.MarkForEnter(button);
}

void FormController::MoveFocus(const Control* control) {
  view_.Focus(control);
  FocusChanged();
}

bool FormController::Tab(bool forward) {
  const Control* next = NextInTabOrder(form_, view_.FocusedControl(), forward);
  if (next != nullptr) MoveFocus(next);
  return next != nullptr;
}

bool FormController::Enter() { return Activate(ButtonForEnter(form_, view_.FocusedControl())); }

bool FormController::Escape() { return Activate(ButtonForEscape(form_)); }

bool FormController::Activate(const CommandButton* button) {
  if (button != nullptr)
    runner_.Run(button->Click);
  else if (ClosesByEnterAndEscape(form_))
    Close();
  else
    return false;
  return true;
}

bool FormController::FunctionKey(int key) {
  const Command* command = CommandForFunctionKey(form_, key);
  if (command != nullptr) runner_.Run(command->Action);
  return command != nullptr;
}

bool FormController::AccessKey(std::string_view character) {
  for (const Control* control : form_.Controls) {
    const auto* button = dynamic_cast<const CommandButton*>(control);
    if (button == nullptr || !IsShown(*button) || !HasAccessKey(*button, character)) continue;
    MoveFocus(button);
    return Activate(button);
  }
  return false;
}

void FormController::Resized(Size client) {
  if (requested_ == Size{}) return;  // not yet laid out
  if (client == requested_)
    std::tie(form_.Width, form_.Height) = setSize_;
  else
    SetClientSize(form_, client, desktop_.TwipsPerPixel());
  seenSize_ = FormSize();
}

void FormController::Moved(int left, int top) {
  const FrameMetrics frame = MetricsOf(form_.Border);
  const TwipRatio twips = desktop_.TwipsPerPixel();
  form_.Left = static_cast<float>(left - frame.side) * twips.across;
  form_.Top = static_cast<float>(top - frame.top) * twips.down;
}

void FormController::Close() {
  runner_.Run([this] {
    if (form_.Unload) form_.Unload();
    form_.Loaded = false;
  });
}

}  // namespace sorvex
