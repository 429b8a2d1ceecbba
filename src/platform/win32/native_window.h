// SPDX-License-Identifier: MIT
// A window of this program's own class, as an object.
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

  /// Makes the window, hidden and without size; throws OutOfMemory when the system has none left.
  void Create(DWORD style, DWORD extendedStyle, HWND parent);
  /// Answers a message; the base answers as the system does.
  virtual LRESULT Receive(UINT message, WPARAM first, LPARAM second);
  /// An exception left Receive; it is the current one.
  virtual void Failed() = 0;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second) noexcept;
  static const wchar_t* ClassName();

  HWND handle_ = nullptr;
};

/// What programs may use of the screen that `window` is on, of the first one when it is null.
RECT WorkArea(HWND window);

}  // namespace sorvex
