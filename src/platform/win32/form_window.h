// SPDX-License-Identifier: MIT
// The top-level window of one shown form: mirrors the form and its controls, rules focus and keys, runs its timers.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/shown.h"
#include "platform/win32/control_windows.h"
#include "platform/win32/pointer_area.h"
#include "platform/win32/tool_tips.h"

namespace sorvex {

class FormWindow final : public PointerArea {
 public:
  /// With an owner the window is modal: the owner takes no input while it lives.
  FormWindow(std::unique_ptr<FormContext> context, FormWindow* owner);
  ~FormWindow() override;

  Form& ShownForm() { return context_.form; }
  /// Brings the window and every control up to date.
  void Sync();
  /// The window appears, the first control in tab order has the focus.
  void Open();
  void RunTimers();
  /// Takes a key that means something to the form, whichever control has the focus; false when it means nothing.
  bool TakeKey(const MSG& message);
  /// The surface's window shows what changed in these boxes; nothing when it has none.
  void Show(const PictureBox& surface, std::span<const Rectangle> changed);

 protected:
  LRESULT Receive(UINT message, WPARAM first, LPARAM second) override;

 private:
  struct OuterSize {
    float width = 0;
    float height = 0;
    bool operator==(const OuterSize&) const = default;
  };
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

  void SyncWindow();
  void SyncControls();
  void SyncPainted(const Control& control);
  void DropGoneControls();
  void LeaveGoneFocus();
  void MarkButtonForEnter();
  void Mirror(Control& control);
  static PaintedLook LookOf(const Control& control);
  HWND WindowUnder(const Control& control) const;
  void Restack();
  void ArmTimer();
  void CenterOnOwner();
  void KeepPosition();
  void KeepSize(Size client);
  void Activated(bool active);
  void Notified(HWND window, WORD code);
  void Unload();
  bool ClickButton(const CommandButton* button);
  bool TakeAccessKey(wchar_t key);
  void Focus(const Control* control);
  Control* FocusedControl() const;
  OuterSize FormSize() const { return {context_.form.Width, context_.form.Height}; }

  std::unique_ptr<FormContext> ownedContext_;
  FormWindow* owner_;
  std::unordered_map<const Control*, std::unique_ptr<ControlWindow>> windows_;
  std::unordered_map<const Control*, Painted> seen_;
  std::unique_ptr<ToolTips> toolTips_;
  std::vector<Control*> mirrored_;           // the form's controls at the last synchronisation
  std::vector<Control*> painted_;            // those of them that are painted on their container
  std::vector<Control*> others_;             // the rest of them
  const Control* enterMarkedFor_ = nullptr;  // the focus for which the buttons show what Enter means
  HWND focusBefore_ = nullptr;               // what had the focus when the window lost it
  Shown<std::string> caption_;
  Shown<Color> background_;
  bool timerRuns_ = false;
  std::uint32_t timerDue_ = 0;  // the tick count for which the timer is set
  OuterSize setSize_;           // what the program set last
  OuterSize seenSize_;          // what the form said at the last exchange
  Size requested_;              // the client area that follows from setSize_
};

}  // namespace sorvex
