// SPDX-License-Identifier: MIT
// A form's window without pixels, which records what its controller requested.
#pragma once

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>
#include <string>

#include "platform/form_controller.h"

namespace sorvex {

class HeadlessWindow final : public FormView {
 public:
  HeadlessWindow(Form& form, Desktop& desktop, HandlerRunner& runner) : Controller(form, desktop, runner, *this) {}

  FormController Controller;
  const Control* Focused = nullptr;
  const CommandButton* Marked = nullptr;  ///< the button drawn as the one that Enter activates
  std::string Caption;
  Size Client;
  std::optional<int> Timer;  ///< milliseconds, as last set

 private:
  const Control* FocusedControl() const override { return Focused; }
  void Focus(const Control* control) override { Focused = control; }
  void MarkForEnter(const CommandButton* button) override { Marked = made_.contains(button) ? button : nullptr; }
  void SetCaption(const std::string& caption) override { Caption = caption; }
  void BackgroundChanged() override {}
  void SetClientSize(Size client) override { Client = client; }
  void ControlsChanged() override { made_.clear(); }
  bool SyncControls() override {
    const std::size_t before = made_.size();
    std::ranges::copy_if(Controller.ShownForm().Controls, std::inserter(made_, made_.end()),
                         [](const Control* control) { return IsShown(*control); });
    return made_.size() != before;
  }
  void SetTimer(std::optional<int> milliseconds) override { Timer = milliseconds; }

  std::set<const Control*> made_;  // the controls that a real window would have widgets for
};

}  // namespace sorvex
