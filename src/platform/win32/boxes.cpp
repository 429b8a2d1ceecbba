// SPDX-License-Identifier: MIT
// Message and input box.
#include "platform/win32/boxes.h"

#include <exception>

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
    return FALSE;  // the focus is set
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
  ::MessageBoxW(owner, ToWide(text).c_str(), ToWide(title).c_str(), FlagsOf(icon));
}

std::string ShowInputBox(HWND owner, const std::string& prompt, const std::string& title) {
  Question question{ToWide(prompt), ToWide(title), {}, {}};
  ::DialogBoxParamW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_INPUT_BOX), owner, &Receive,
                    reinterpret_cast<LPARAM>(&question));
  if (question.error) std::rethrow_exception(question.error);
  return FromWide(question.answer);
}

}  // namespace sorvex
