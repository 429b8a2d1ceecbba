// SPDX-License-Identifier: MIT
// The window class and its procedure.
#include "platform/win32/native_window.h"

#include "base/runtime_error.h"

namespace sorvex {

NativeWindow::~NativeWindow() {
  if (handle_ == nullptr) return;
  ::SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
  ::DestroyWindow(handle_);
}

const wchar_t* NativeWindow::ClassName() {
  static const wchar_t* const name = [] {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    // CS_OWNDC: each window keeps its device context, so that showing a frame need not acquire one.
    description.style = CS_OWNDC | CS_DBLCLKS;
    description.lpfnWndProc = &Procedure;
    description.hInstance = ::GetModuleHandleW(nullptr);
    description.lpszClassName = L"Sorvex";
    ::RegisterClassExW(&description);
    return description.lpszClassName;
  }();
  return name;
}

void NativeWindow::Create(DWORD style, DWORD extendedStyle, HWND parent) {
  constexpr int kAnywhere = CW_USEDEFAULT;
  const bool child = (style & WS_CHILD) != 0;
  const int place = child ? 0 : kAnywhere;
  handle_ = ::CreateWindowExW(extendedStyle, ClassName(), L"", style, place, place, 0, 0, parent, nullptr,
                              ::GetModuleHandleW(nullptr), this);
  if (handle_ == nullptr) throw OutOfMemory();
}

LRESULT NativeWindow::Receive(UINT message, WPARAM first, LPARAM second) {
  return ::DefWindowProcW(handle_, message, first, second);
}

LRESULT CALLBACK NativeWindow::Procedure(HWND window, UINT message, WPARAM first, LPARAM second) noexcept {
  if (message == WM_NCCREATE) {
    auto* self = static_cast<NativeWindow*>(reinterpret_cast<const CREATESTRUCTW*>(second)->lpCreateParams);
    self->handle_ = window;
    ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
  }
  auto* self = reinterpret_cast<NativeWindow*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr) return ::DefWindowProcW(window, message, first, second);
  if (message == WM_NCDESTROY) {
    self->handle_ = nullptr;
    return ::DefWindowProcW(window, message, first, second);
  }
  try {
    return self->Receive(message, first, second);
  } catch (...) {
    self->OnException();
    return 0;
  }
}

RECT WorkArea(HWND window) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  const DWORD choice = window == nullptr ? MONITOR_DEFAULTTOPRIMARY : MONITOR_DEFAULTTONEAREST;
  ::GetMonitorInfoW(::MonitorFromWindow(window, choice), &monitor);
  return monitor.rcWork;
}

}  // namespace sorvex
