// SPDX-License-Identifier: MIT
// The native window of a shown form: mirrors the form's controls and reports events to its FormController.
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
  /// With an owner (may be null) the window is modal: the owner is disabled while it exists.
  FormWindow(std::unique_ptr<FormContext> context, FormWindow* owner);
  ~FormWindow() override;
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;

  FormController& Controller() { return controller_; }
  /// Shows the window and moves the focus to the first control in tab order.
  void Open();
  /// Handles keys that have a meaning for the whole form, whichever control has the focus; false if `message` is not
  /// one.
  bool TakeKey(const MSG& message);
  /// Repaints these dirty rectangles of the surface at once; does nothing if it has no window.
  void Show(const PictureBox& surface, std::span<const Rectangle> changed);

 protected:
  LRESULT Receive(UINT message, WPARAM first, LPARAM second) override;

 private:
  /// The visible properties of a control that is painted on its container.
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
    Rectangle place;  ///< in pixels of the window that it is painted on
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
  void ReportPosition();
  void Activated(bool active);
  void Notified(HWND window, WORD code);

  std::unique_ptr<FormContext> ownedContext_;
  FormWindow* owner_;
  FormController controller_{context_.form, context_.desktop, context_.runner, *this};
  std::unordered_map<const Control*, std::unique_ptr<ControlWindow>> windows_;
  std::unordered_map<const Control*, Painted> seen_;
  std::unique_ptr<ToolTips> toolTips_;
  std::vector<Control*> painted_;  // the controls that are painted on their container
  std::vector<Control*> others_;   // all other controls
  HWND focusBefore_ = nullptr;     // the child that had the focus when the window was deactivated
};

}  // namespace sorvex
