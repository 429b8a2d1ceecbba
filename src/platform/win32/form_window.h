// SPDX-License-Identifier: MIT
// The top-level window of one shown form: mirrors the form's controls and tells its controller what happens.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/form_controller.h"
#include "platform/win32/control_windows.h"
#include "platform/win32/pointer_area.h"
#include "platform/win32/tool_tips.h"

namespace sorvex {

class FormWindow final : public PointerArea, private FormView {
 public:
  /// With an owner the window is modal: the owner takes no input while it lives.
  FormWindow(std::unique_ptr<FormContext> context, FormWindow* owner);
  ~FormWindow() override;
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;

  FormController& Controller() { return controller_; }
  /// The window appears, the first control in tab order has the focus.
  void Open();
  /// Takes a key that means something to the form, whichever control has the focus; false when it means nothing.
  bool TakeKey(const MSG& message);
  /// The surface's window shows what changed in these boxes; nothing when it has none.
  void Show(const PictureBox& surface, std::span<const Rectangle> changed);

 protected:
  LRESULT Receive(UINT message, WPARAM first, LPARAM second) override;

 private:
  /// What is seen of a control that is painted on its container.
  struct PaintedLook {
    Rectangle bounds;
    bool visible = false;
    std::string text;
    Font font;
    Color fore;
    Color back;
    bool operator==(const PaintedLook&) const = default;
  };
  struct Painted {
    PaintedLook look;
    Rectangle place;  ///< in the window that it is painted on
  };

  const Control* FocusedControl() const override;
  void Focus(const Control* control) override;
  void MarkForEnter(const CommandButton* button) override;
  void SetCaption(const std::string& caption) override;
  void BackgroundChanged() override;
  void SetClientSize(Size client) override;
  void ControlsChanged() override;
  bool SyncControls() override;
  void SetTimer(std::optional<int> milliseconds) override;

  void SyncPainted(const Control& control);
  void Mirror(Control& control);
  static PaintedLook LookOf(const Control& control);
  HWND WindowUnder(const Control& control) const;
  void Restack();
  void CenterOnOwner();
  void KeepPosition();
  void Activated(bool active);
  void Notified(HWND window, WORD code);

  std::unique_ptr<FormContext> ownedContext_;
  FormWindow* owner_;
  FormController controller_{context_.form, context_.desktop, context_.handlers, *this};
  std::unordered_map<const Control*, std::unique_ptr<ControlWindow>> windows_;
  std::unordered_map<const Control*, Painted> seen_;
  std::unique_ptr<ToolTips> toolTips_;
  std::vector<Control*> painted_;  // the controls that are painted on their container
  std::vector<Control*> others_;   // the rest of them
  HWND focusBefore_ = nullptr;     // what had the focus when the window lost it
};

}  // namespace sorvex
