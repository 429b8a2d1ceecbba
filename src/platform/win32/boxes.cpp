// SPDX-License-Identifier: MIT
// Message box and input box.
#include "platform/win32/boxes.h"

#include <exception>
#include <string_view>

#include "platform/box_text.h"
#include "platform/win32/native_window.h"
#include "platform/win32/resources.h"
#include "platform/win32/text.h"

namespace sorvex {
namespace {

UINT FlagsOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::None: return MB_OK;
    case BoxIcon::Critical: return MB_OK | MB_ICONERROR;
    case BoxIcon::Exclamation: return MB_OK | MB_ICONWARNING;
    case BoxIcon::Information: return MB_OK | MB_ICONINFORMATION;
  }
  return MB_OK;
}

/// The font of message boxes, to measure their text.
class BoxFont {
 public:
  BoxFont() : context_(::GetDC(nullptr)) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    font_ = ::CreateFontIndirectW(&metrics.lfMessageFont);
    before_ = ::SelectObject(context_, font_);
  }
  BoxFont(const BoxFont&) = delete;
  BoxFont& operator=(const BoxFont&) = delete;
  ~BoxFont() {
    ::SelectObject(context_, before_);
    ::DeleteObject(font_);
    ::ReleaseDC(nullptr, context_);
  }

  Size Measure(std::string_view line) const {
    const std::wstring text = ToWide(line);
    RECT needed{};
    ::DrawTextW(context_, text.c_str(), static_cast<int>(text.size()), &needed,
                DT_CALCRECT | DT_EXPANDTABS | DT_NOPREFIX | DT_SINGLELINE);
    return {static_cast<int>(needed.right), static_cast<int>(needed.bottom)};
  }

 private:
  HDC context_;
  HFONT font_;
  HGDIOBJ before_;
};

struct Question {
  std::wstring prompt;
  std::wstring title;
  std::wstring answer;
  std::exception_ptr error;
};

void TakeAnswer(HWND dialog, Question& question) {
  const HWND field = ::GetDlgItem(dialog, IDC_ANSWER);
  question.answer.resize(static_cast<std::size_t>(::GetWindowTextLengthW(field)) + 1);
  const int length = ::GetWindowTextW(field, question.answer.data(), static_cast<int>(question.answer.size()));
  question.answer.resize(static_cast<std::size_t>(length));
}

INT_PTR CALLBACK Receive(HWND dialog, UINT message, WPARAM first, LPARAM second) noexcept {
  if (message == WM_INITDIALOG) {
    ::SetWindowLongPtrW(dialog, DWLP_USER, second);
    const auto& question = *reinterpret_cast<const Question*>(second);
    ::SetWindowTextW(dialog, question.title.c_str());
    ::SetDlgItemTextW(dialog, IDC_PROMPT, question.prompt.c_str());
    ::SendDlgItemMessageW(dialog, IDC_ANSWER, EM_SETLIMITTEXT, kLongestEntry, 0);
    ::SetFocus(::GetDlgItem(dialog, IDC_ANSWER));
    return FALSE;  // the focus is set already
  }
  const WORD button = LOWORD(first);
  if (message != WM_COMMAND || (button != IDOK && button != IDCANCEL)) return FALSE;
  auto& question = *reinterpret_cast<Question*>(::GetWindowLongPtrW(dialog, DWLP_USER));
  try {
    if (button == IDOK) TakeAnswer(dialog, question);
  } catch (...) {
    question.error = std::current_exception();
  }
  ::EndDialog(dialog, button);
  return TRUE;
}

}  // namespace

void ShowMessageBox(HWND owner, const std::string& text, const std::string& title, BoxIcon icon) {
  const RECT screen = WorkArea(owner);
  const BoxFont font;
  // Narrow enough for every system: Wine wraps longer lines again.
  const int lineWidth = 20 * font.Measure("X").height;
  const std::string shown = BoxText(text, {lineWidth, screen.bottom - screen.top},
                                    [&font](std::string_view line) { return font.Measure(line); });
  ::MessageBoxW(owner, ToWide(shown).c_str(), ToWide(title).c_str(), FlagsOf(icon));
}

std::string ShowInputBox(HWND owner, const std::string& prompt, const std::string& title) {
  Question question{ToWide(prompt), ToWide(title), {}, {}};
  ::DialogBoxParamW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_INPUT_BOX), owner, &Receive,
                    reinterpret_cast<LPARAM>(&question));
  if (question.error) std::rethrow_exception(question.error);
  return FromWide(question.answer);
}

}  // namespace sorvex
