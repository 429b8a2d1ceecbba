// SPDX-License-Identifier: MIT
// A form as a native window.
#include "platform/win32/form_window.h"

#include <windowsx.h>

#include <algorithm>
#include <ranges>
#include <unordered_set>
#include <utility>

#include "platform/win32/built_ins.h"
#include "platform/win32/painting.h"
#include "platform/win32/text.h"

namespace sorvex {
namespace {

constexpr UINT_PTR kTimer = 1;

DWORD StyleOf(const Form& form) {
  DWORD style = WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
  if (form.Border == FormBorder::Sizable) style |= WS_THICKFRAME;
  if (form.Border != FormBorder::Sizable) style |= WS_POPUP;
  if (form.MinButton) style |= WS_MINIMIZEBOX;
  return style;
}

DWORD ExtendedStyleOf(const Form& form) {
  switch (form.Border) {
    case FormBorder::Sizable: return 0;
    case FormBorder::FixedDialog: return WS_EX_DLGMODALFRAME;
    case FormBorder::FixedToolWindow: return WS_EX_TOOLWINDOW;
  }
  return 0;
}

}  // namespace

FormWindow::FormWindow(std::unique_ptr<FormContext> context, FormWindow* owner)
    : PointerArea(*context, nullptr), ownedContext_(std::move(context)), owner_(owner) {
  const Form& form = context_.form;
  Create(StyleOf(form), ExtendedStyleOf(form), owner == nullptr ? nullptr : owner->Handle());
  toolTips_ = std::make_unique<ToolTips>(Handle());
  if (form.Icon != BuiltIn::None) {
    for (const auto& [kind, width] : {std::pair{ICON_SMALL, SM_CXSMICON}, std::pair{ICON_BIG, SM_CXICON}})
      ::SendMessageW(Handle(), WM_SETICON, static_cast<WPARAM>(kind),
                     reinterpret_cast<LPARAM>(BuiltInIcon(form.Icon, ::GetSystemMetrics(width))));
  }
  // Always show access keys and the focus rectangle, not only after the keyboard was used.
  ::SendMessageW(Handle(), WM_UPDATEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL | UISF_HIDEFOCUS), 0);
}

FormWindow::~FormWindow() {
  // Before the window is destroyed, so that the owner and not another program becomes active.
  if (owner_ != nullptr) ::EnableWindow(owner_->Handle(), TRUE);
  // A control that is destroyed with the focus reports losing it: windows_ must be empty by then.
  const auto going = std::exchange(windows_, {});
}

void FormWindow::Open() {
  controller_.Sync();
  if (owner_ != nullptr) ::EnableWindow(owner_->Handle(), FALSE);
  if (context_.form.CenterOnOwner && owner_ != nullptr) CenterOnOwner();
  ::ShowWindow(Handle(), owner_ == nullptr ? SW_SHOWDEFAULT : SW_SHOW);
  controller_.FocusFirst();
  ReportPosition();
  ::UpdateWindow(Handle());
}

void FormWindow::Show(const PictureBox& surface, std::span<const Rectangle> changed) {
  const auto window = windows_.find(&surface);
  if (window != windows_.end()) window->second->Show(changed);
}

void FormWindow::SetCaption(const std::string& caption) { ::SetWindowTextW(Handle(), ToWide(caption).c_str()); }

void FormWindow::BackgroundChanged() { ::InvalidateRect(Handle(), nullptr, FALSE); }

void FormWindow::SetClientSize(Size client) {
  // The size of the client area is given; the frame's width is the desktop's.
  RECT outer{0, 0, client.width, client.height};
  ::AdjustWindowRectEx(&outer, StyleOf(context_.form), FALSE, ExtendedStyleOf(context_.form));
  ::SetWindowPos(Handle(), nullptr, 0, 0, outer.right - outer.left, outer.bottom - outer.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::ControlsChanged() {
  const std::unordered_set<const Control*> present(context_.form.Controls.begin(), context_.form.Controls.end());
  const auto gone = [&](const auto& entry) { return !present.contains(entry.first); };
  for (auto* const controls : {&painted_, &others_}) {
    for (const Control* control : *controls)
      if (!present.contains(control)) toolTips_->Forget(*control);
    controls->clear();
  }
  std::erase_if(windows_, gone);
  std::erase_if(seen_, gone);
  for (Control* control : context_.form.Controls) (IsPainted(*control) ? painted_ : others_).push_back(control);
}

bool FormWindow::SyncControls() {
  const std::size_t before = windows_.size();
  for (Control* control : others_)
    if (IsShown(*control) && !windows_.contains(control)) Mirror(*control);
  for (const auto& [control, window] : windows_) {
    window->Sync();
    const Rectangle place = PixelBounds(*control);
    toolTips_->Sync(*control, window->Window(), place.Moved(-place.left, -place.top));
  }
  for (const Control* control : painted_) SyncPainted(*control);
  const bool grown = windows_.size() != before;
  if (grown) Restack();
  return grown;
}

FormWindow::PaintedLook FormWindow::LookOf(const Control& control) {
  PaintedLook look{PixelBounds(control), control.Visible, {}, {}, {}, {}};
  if (const auto* label = dynamic_cast<const Label*>(&control)) {
    look.text = label->PaintedText();
    look.font = label->Font;
    look.fore = label->ForeColor;
    look.back = label->BackColor;
  }
  if (const auto* shape = dynamic_cast<const Shape*>(&control)) look.back = shape->FillColor;
  return look;
}

void FormWindow::SyncPainted(const Control& control) {
  // On a hidden container: deferred until the container is shown.
  const HWND window = WindowUnder(control);
  if (window == nullptr || (control.Container != nullptr && !IsShown(*control.Container))) return;
  Painted& seen = seen_[&control];
  PaintedLook look = LookOf(control);
  if (seen.look == look) return;
  const int frame = control.Container == nullptr ? 0 : FrameWidth(control.Container->BorderStyle);
  const Rectangle place = PaintedBounds(control).Moved(frame, frame);
  for (const auto& [visible, bounds] : {std::pair{seen.look.visible, seen.place}, std::pair{look.visible, place}}) {
    const RECT part{bounds.left, bounds.top, bounds.right, bounds.bottom};
    if (visible) ::InvalidateRect(window, &part, FALSE);
  }
  seen = {std::move(look), place};
  toolTips_->Sync(control, window, place);
}

HWND FormWindow::WindowUnder(const Control& control) const {
  if (control.Container == nullptr) return Handle();
  const auto container = windows_.find(control.Container);
  return container == windows_.end() ? nullptr : container->second->Window();
}

void FormWindow::Mirror(Control& control) {
  if (control.Container != nullptr && WindowUnder(control) == nullptr) Mirror(*control.Container);
  std::unique_ptr<ControlWindow> window = MakeControlWindow(control, context_, WindowUnder(control));
  if (window != nullptr) windows_.emplace(&control, std::move(window));
}

void FormWindow::Restack() {
  for (const Control* control : context_.form.Controls) {
    const auto window = windows_.find(control);
    if (window != windows_.end())
      ::SetWindowPos(window->second->Window(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  }
}

void FormWindow::SetTimer(std::optional<int> milliseconds) {
  if (milliseconds)
    ::SetTimer(Handle(), kTimer, static_cast<UINT>(*milliseconds), nullptr);
  else
    ::KillTimer(Handle(), kTimer);
}

void FormWindow::CenterOnOwner() {
  RECT own{};
  RECT owners{};
  ::GetWindowRect(Handle(), &own);
  ::GetWindowRect(owner_->Handle(), &owners);
  const RECT screen = WorkArea(owner_->Handle());
  const LONG width = own.right - own.left;
  const LONG height = own.bottom - own.top;
  const LONG left = (owners.left + owners.right - width) / 2;
  const LONG top = (owners.top + owners.bottom - height) / 2;
  ::SetWindowPos(Handle(), nullptr, std::max(screen.left, std::min(left, screen.right - width)),
                 std::max(screen.top, std::min(top, screen.bottom - height)), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::ReportPosition() {
  if (::IsIconic(Handle()) != 0) return;
  POINT client{};
  ::ClientToScreen(Handle(), &client);
  controller_.Moved(client.x, client.y);
}

void FormWindow::Focus(const Control* control) {
  const auto window = windows_.find(control);
  ::SetFocus(window == windows_.end() ? Handle() : window->second->Window());
}

const Control* FormWindow::FocusedControl() const {
  const HWND focus = ::GetFocus();
  const auto found =
      std::ranges::find_if(windows_, [focus](const auto& entry) { return entry.second->Window() == focus; });
  return focus == nullptr || found == windows_.end() ? nullptr : &found->second->Subject();
}

void FormWindow::MarkForEnter(const CommandButton* button) {
  for (const auto& [control, window] : windows_) window->MarkForEnter(control == button);
}

bool FormWindow::TakeKey(const MSG& message) {
  if (message.message == WM_SYSCHAR) {
    const auto character = static_cast<wchar_t>(message.wParam);
    return controller_.AccessKey(FromWide({&character, 1}));
  }
  if (message.message != WM_KEYDOWN) return false;
  switch (message.wParam) {
    case VK_TAB: return controller_.Tab(::GetKeyState(VK_SHIFT) >= 0);
    case VK_RETURN: return controller_.Enter();
    case VK_ESCAPE: return controller_.Escape();
    default: return controller_.FunctionKey(static_cast<int>(message.wParam) - VK_F1 + 1);
  }
}

void FormWindow::Activated(bool active) {
  if (active) return;
  if (::IsChild(Handle(), ::GetFocus())) focusBefore_ = ::GetFocus();
  LosePointerSoon();
}

void FormWindow::Notified(HWND window, WORD code) {
  const auto found =
      std::ranges::find_if(windows_, [window](const auto& entry) { return entry.second->Window() == window; });
  if (found != windows_.end()) found->second->Notified(code);
}

LRESULT FormWindow::Receive(UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case WM_CLOSE: controller_.Close(); return 0;
    case WM_TIMER:
      ::KillTimer(Handle(), kTimer);
      controller_.TimerFired();
      return 0;
    case WM_SYSCOMMAND:
      // Alt or F10 alone would open the system menu invisibly, and its modal loop would freeze the game.
      if ((first & 0xFFF0) == SC_KEYMENU && second == 0) return 0;
      return PointerArea::Receive(message, first, second);
    case WM_COMMAND: Notified(reinterpret_cast<HWND>(second), HIWORD(first)); return 0;
    case WM_SIZE:
      if (first != SIZE_MINIMIZED) controller_.Resized({GET_X_LPARAM(second), GET_Y_LPARAM(second)});
      return 0;
    case WM_MOVE: ReportPosition(); return 0;
    case WM_ACTIVATE: Activated(LOWORD(first) != WA_INACTIVE); return PointerArea::Receive(message, first, second);
    case WM_SETFOCUS:
      if (::IsWindowVisible(focusBefore_) != 0) ::SetFocus(focusBefore_);
      controller_.FocusChanged();
      return 0;
    case WM_GETMINMAXINFO:
      // With a large play field the window may be larger than the screen.
      PointerArea::Receive(message, first, second);
      reinterpret_cast<MINMAXINFO*>(second)->ptMaxTrackSize = {SHRT_MAX, SHRT_MAX};
      return 0;
    default: return PointerArea::Receive(message, first, second);
  }
}

}  // namespace sorvex
