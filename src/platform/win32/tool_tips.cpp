// SPDX-License-Identifier: MIT
// Tool tips with the system's tooltip control.
#include "platform/win32/tool_tips.h"

#include <commctrl.h>

#include <utility>

#include "platform/win32/text.h"

namespace sorvex {
namespace {

constexpr int kWidest = 400;  // pixels; longer texts wrap

}  // namespace

ToolTips::ToolTips(HWND form) {
  const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_BAR_CLASSES};
  ::InitCommonControlsEx(&classes);
  window_ =
      ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX, CW_USEDEFAULT, CW_USEDEFAULT,
                        CW_USEDEFAULT, CW_USEDEFAULT, form, nullptr, ::GetModuleHandleW(nullptr), nullptr);
  ::SendMessageW(window_, TTM_SETMAXTIPWIDTH, 0, kWidest);
}

void ToolTips::Sync(const Control& control, HWND window, const Rectangle& place) {
  const auto known = tips_.find(&control);
  const bool wanted = control.Visible && !control.ToolTipText.empty();
  if (!wanted) {
    if (known != tips_.end()) Forget(control);
    return;
  }
  Tip tip{control.ToolTipText, window, place};
  if (known != tips_.end() && known->second == tip) return;
  Forget(control);
  std::wstring text = ToWide(tip.text);
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.uFlags = TTF_SUBCLASS;
  tool.hwnd = window;
  tool.uId = reinterpret_cast<UINT_PTR>(&control);
  tool.rect = {place.left, place.top, place.right, place.bottom};
  tool.lpszText = text.data();
  ::SendMessageW(window_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  tips_.emplace(&control, std::move(tip));
}

void ToolTips::Forget(const Control& control) {
  const auto known = tips_.find(&control);
  if (known == tips_.end()) return;
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.hwnd = known->second.window;
  tool.uId = reinterpret_cast<UINT_PTR>(&control);
  ::SendMessageW(window_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  tips_.erase(known);
}

}  // namespace sorvex
