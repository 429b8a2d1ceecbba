// SPDX-License-Identifier: MIT
// A window of the program's own window class, as a C++ object.
#pragma once

#include <windows.h>

namespace sorvex {

class NativeWindow {
 public:
  NativeWindow(const NativeWindow&) = delete;
  NativeWindow& operator=(const NativeWindow&) = delete;
  virtual ~NativeWindow();

  /// Null once the system has destroyed the window.
  HWND Handle() const { return handle_; }

 protected:
  NativeWindow() = default;

  /// Creates the window, hidden and with size 0; throws OutOfMemory (7) on failure.
  void Create(DWORD style, DWORD extendedStyle, HWND parent);
  /// Handles a message and returns its result; the base class calls DefWindowProc.
  virtual LRESULT Receive(UINT message, WPARAM first, LPARAM second);
  /// Called inside the catch block for an exception from Receive.
  virtual void OnException() = 0;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second) noexcept;
  static const wchar_t* ClassName();

  HWND handle_ = nullptr;
};

/// The work area, without the taskbar, of the screen that `window` is on; of the primary screen if it is null.
RECT WorkArea(HWND window);

}  // namespace sorvex
