// SPDX-License-Identifier: MIT
// Surfaces, buttons and lists as native windows.
#include "platform/win32/control_windows.h"

#include <algorithm>
#include <string>
#include <vector>

#include "base/runtime_error.h"
#include "platform/accessibility.h"
#include "platform/shown_value.h"
#include "platform/win32/painting.h"
#include "platform/win32/text.h"

namespace sorvex {
namespace {

// The font of buttons and lists, which fits their designed sizes.
const Font kControlFont{"Arial", 9.75F};

// Applies the control's bounds and visibility to the window if they changed.
void Place(HWND window, const Control& control, ShownValue<Rectangle>& bounds, ShownValue<bool>& visible) {
  const int frame = control.Container == nullptr ? 0 : FrameWidth(control.Container->BorderStyle);
  const Rectangle place = PixelBounds(control).Moved(frame, frame);
  if (bounds.Update(place))
    ::SetWindowPos(window, nullptr, place.left, place.top, place.Width(), place.Height(),
                   SWP_NOZORDER | SWP_NOACTIVATE);
  if (visible.Update(control.Visible)) ::ShowWindow(window, control.Visible ? SW_SHOWNA : SW_HIDE);
}

class SurfaceWindow final : public PointerArea, public ControlWindow {
 public:
  SurfaceWindow(PictureBox& surface, FormContext& context, HWND parent)
      : PointerArea(context, &surface), ControlWindow(surface), control_(surface) {
    Create(WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0, parent);
    canvas_ = ::GetDC(Handle());
  }

  HWND Window() const override { return Handle(); }

  void Sync() override {
    Place(Handle(), control_, bounds_, visible_);
    if (IsShown(control_)) Name();
    if (look_.Update(LookOf(control_)) || paintOwed_) ::InvalidateRect(Handle(), nullptr, FALSE);
  }

  void Show(std::span<const Rectangle> changed) override {
    const int frame = FrameWidth(control_.BorderStyle);
    const bool painted = ::GetUpdateRect(Handle(), nullptr, FALSE) == 0 && !HoldsPaintedControls();
    for (const Rectangle& box : changed) {
      if (painted) {
        ShowPixels(canvas_, control_.Image(), Intersection(box, control_.Image().Bounds()), frame, frame);
        continue;
      }
      const RECT part{box.left + frame, box.top + frame, box.right + frame, box.bottom + frame};
      ::InvalidateRect(Handle(), &part, FALSE);
    }
    if (!painted) ::UpdateWindow(Handle());
    ::GdiFlush();
  }

 protected:
  LRESULT Receive(UINT message, WPARAM first, LPARAM second) override {
    if (message == WM_PAINT) RaisePaint();
    if (message == WM_SETFOCUS || message == WM_KILLFOCUS) MarkFocus(message == WM_SETFOCUS);
    return PointerArea::Receive(message, first, second);
  }

 private:
  void RaisePaint() {
    if (control_.AutoRedraw || !control_.Paint) return;
    paintOwed_ = !context_.runner.MayRun();
    context_.runner.Run(control_.Paint);
  }

  void MarkFocus(bool focused) {
    context_.focused = focused ? &control_ : nullptr;
    ::InvalidateRect(::GetParent(Handle()), nullptr, FALSE);
  }

  // Screen readers use the window's text as its name and do not see the labels painted on it.
  void Name() {
    const std::string text = SpokenText(context_.form, control_);
    if (name_.Update(text)) ::SetWindowTextW(Handle(), ToWide(text).c_str());
  }

  bool HoldsPaintedControls() const {
    return std::ranges::any_of(context_.form.Controls, [this](const Control* control) {
      return control->Container == &control_ && control->Visible && IsPainted(*control);
    });
  }

  PictureBox& control_;
  HDC canvas_ = nullptr;  // the window's private device context (CS_OWNDC)
  ShownValue<Rectangle> bounds_;
  ShownValue<bool> visible_;
  ShownValue<SurfaceLook> look_;
  ShownValue<std::string> name_;
  bool paintOwed_ = false;  // painted while no handler could run: the Paint event is deferred
};

/// One of the system's own controls.
class SystemControl : public ControlWindow {
 public:
  SystemControl(Control& control, HWND parent, const wchar_t* className, DWORD style, DWORD extendedStyle)
      : ControlWindow(control),
        window_(::CreateWindowExW(extendedStyle, className, L"", WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | style, 0, 0,
                                  0, 0, parent, nullptr, ::GetModuleHandleW(nullptr), nullptr)) {
    if (window_ == nullptr) throw OutOfMemory();
    Send(WM_SETFONT, reinterpret_cast<WPARAM>(FontFor(kControlFont)), TRUE);
  }
  ~SystemControl() override { ::DestroyWindow(window_); }
  SystemControl(const SystemControl&) = delete;
  SystemControl& operator=(const SystemControl&) = delete;

  HWND Window() const override { return window_; }
  void Sync() override { Place(window_, Subject(), bounds_, visible_); }

 protected:
  LRESULT Send(UINT message, WPARAM first = 0, LPARAM second = 0) const {
    return ::SendMessageW(window_, message, first, second);
  }

 private:
  HWND window_;
  ShownValue<Rectangle> bounds_;
  ShownValue<bool> visible_;
};

class ButtonWindow final : public SystemControl {
 public:
  ButtonWindow(CommandButton& button, FormContext& context, HWND parent)
      : SystemControl(button, parent, L"BUTTON", BS_PUSHBUTTON, 0), control_(button), context_(context) {}

  void Sync() override {
    SystemControl::Sync();
    if (caption_.Update(control_.Caption)) ::SetWindowTextW(Window(), ToWide(control_.Caption).c_str());
  }

  void Notified(WORD code) override {
    if (code == BN_CLICKED) context_.runner.Run(control_.Click);
  }
  void MarkForEnter(bool marked) override {
    Send(BM_SETSTYLE, static_cast<WPARAM>(marked ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON), TRUE);
  }

 private:
  CommandButton& control_;
  FormContext& context_;
  ShownValue<std::string> caption_;
};

class ListWindow final : public SystemControl {
 public:
  ListWindow(ListBox& list, FormContext& context, HWND parent)
      : SystemControl(list, parent, L"LISTBOX", WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | LBS_HASSTRINGS,
                      WS_EX_CLIENTEDGE),
        control_(list),
        context_(context) {
    ::SetWindowTextW(Window(), ToWide(list.AccessibleName).c_str());
  }

  void Sync() override {
    SystemControl::Sync();
    if (list_.Update(control_.List)) {
      index_.Update(-1);
      Send(LB_RESETCONTENT);
      for (const std::string& entry : control_.List)
        Send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(entry).c_str()));
    }
    // Only after changes: between press and release the list shows a selection that it has not reported yet.
    if (index_.Update(control_.ListIndex)) Send(LB_SETCURSEL, static_cast<WPARAM>(control_.ListIndex));
  }

  void Notified(WORD code) override {
    if (code == LBN_SELCHANGE || code == LBN_DBLCLK) index_.Update(control_.ListIndex = SelectedRow());
    if (code == LBN_DBLCLK) context_.runner.Run(control_.DoubleClick);
  }

 private:
  int SelectedRow() const { return static_cast<int>(Send(LB_GETCURSEL)); }

  ListBox& control_;
  FormContext& context_;
  ShownValue<std::vector<std::string>> list_;
  ShownValue<int> index_;
};

}  // namespace

std::unique_ptr<ControlWindow> MakeControlWindow(Control& control, FormContext& context, HWND parent) {
  if (auto* surface = dynamic_cast<PictureBox*>(&control))
    return std::make_unique<SurfaceWindow>(*surface, context, parent);
  if (auto* button = dynamic_cast<CommandButton*>(&control))
    return std::make_unique<ButtonWindow>(*button, context, parent);
  if (auto* list = dynamic_cast<ListBox*>(&control)) return std::make_unique<ListWindow>(*list, context, parent);
  return nullptr;
}

}  // namespace sorvex
