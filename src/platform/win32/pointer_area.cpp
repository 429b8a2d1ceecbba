// SPDX-License-Identifier: MIT
// Translates native pointer messages to calls of PointerInput, and paints.
#include "platform/win32/pointer_area.h"

#include <windowsx.h>

#include <array>
#include <utility>

#include "platform/win32/built_ins.h"
#include "platform/win32/painting.h"

namespace sorvex {
namespace {

constexpr UINT kPointerLost = WM_APP;

Integer ShiftOf(WPARAM keys) {
  int shift = 0;
  if ((keys & MK_SHIFT) != 0) shift |= kShiftKey;
  if ((keys & MK_CONTROL) != 0) shift |= kCtrlKey;
  if (::GetKeyState(VK_MENU) < 0) shift |= kAltKey;
  return static_cast<Integer>(shift);
}

bool AnyButton(WPARAM keys) { return (keys & (MK_LBUTTON | MK_RBUTTON | MK_MBUTTON)) != 0; }

// Screen position and time of the event being delivered, in the format of GetMouseMovePointsEx, whose coordinates are
// 16-bit.
MOUSEMOVEPOINT DeliveredEvent() {
  const DWORD place = ::GetMessagePos();
  MOUSEMOVEPOINT event{};
  event.x = LOWORD(place);
  event.y = HIWORD(place);
  event.time = static_cast<DWORD>(::GetMessageTime());
  return event;
}

// Event times have a coarse resolution: within one tick the position distinguishes a later event from `last`.
bool IsAfter(const MOUSEMOVEPOINT& point, const MOUSEMOVEPOINT& last) {
  const auto later = static_cast<LONG>(point.time - last.time);
  return point.time != 0 &&
         (later > 0 || (later == 0 && (LOWORD(point.x) != LOWORD(last.x) || LOWORD(point.y) != LOWORD(last.y))));
}

// Windows coalesces pending moves; the dropped positions are in its history (GetMouseMovePointsEx). Calls `deliver`
// with each screen position after the event `last` and before `now`.
template <class Deliver>
void ForEachJoinedMove(const MOUSEMOVEPOINT& last, MOUSEMOVEPOINT now, const Deliver& deliver) {
  if (last.time == 0) return;
  constexpr int kMost = 64;
  std::array<MOUSEMOVEPOINT, kMost> points{};
  const int count = ::GetMouseMovePointsEx(sizeof now, &now, points.data(), kMost, GMMP_USE_DISPLAY_POINTS);
  // points[0] is `now` itself.
  int oldest = 0;
  while (oldest + 1 < count && IsAfter(points[static_cast<std::size_t>(oldest) + 1], last)) ++oldest;
  for (; oldest > 0; --oldest) {
    const MOUSEMOVEPOINT& point = points[static_cast<std::size_t>(oldest)];
    // Left of and above the primary screen, coordinates are negative 16-bit numbers.
    deliver(POINT{static_cast<SHORT>(point.x), static_cast<SHORT>(point.y)});
  }
}

}  // namespace

void PointerArea::LosePointer() {
  if (::GetCapture() == Handle() || ::IsChild(Handle(), ::GetCapture()) != 0) ::ReleaseCapture();
  context_.lastEvent = {};
  context_.runner.Run([this] { context_.pointer.Lose(); });
}

void PointerArea::LosePointerSoon() { ::PostMessageW(Handle(), kPointerLost, 0, 0); }

void PointerArea::OnException() { context_.runner.StoreException(); }

LRESULT PointerArea::Receive(UINT message, WPARAM first, LPARAM second) {
  const POINT place{GET_X_LPARAM(second), GET_Y_LPARAM(second)};
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: Press(kLeftButton, first, place); return 0;
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK: Press(kRightButton, first, place); return 0;
    case WM_MBUTTONDOWN:
    case WM_MBUTTONDBLCLK: Press(kMiddleButton, first, place); return 0;
    case WM_LBUTTONUP: Release(kLeftButton, first, place); return 0;
    case WM_RBUTTONUP: Release(kRightButton, first, place); return 0;
    case WM_MBUTTONUP: Release(kMiddleButton, first, place); return 0;
    case WM_MOUSEMOVE: Move(first, place); return 0;
    case WM_MOUSELEAVE: Left(); return 0;
    case WM_CAPTURECHANGED: LosePointerSoon(); return 0;
    case kPointerLost: LosePointer(); return 0;
    case WM_SETCURSOR:
      if (LOWORD(second) == HTCLIENT && reinterpret_cast<HWND>(first) == Handle() && ShowShape()) return TRUE;
      return NativeWindow::Receive(message, first, second);
    case WM_ERASEBKGND: return TRUE;
    case WM_PAINT: Paint(); return 0;
    case WM_PRINTCLIENT: Print(reinterpret_cast<HDC>(first)); return 0;  // lets buttons paint their parent's background
    case WM_COMMAND: return ::SendMessageW(::GetAncestor(Handle(), GA_ROOT), message, first, second);
    case WM_CTLCOLORBTN:
      return reinterpret_cast<LRESULT>(BackgroundBrush(reinterpret_cast<HDC>(first), context_, surface_));
    default: return NativeWindow::Receive(message, first, second);
  }
}

void PointerArea::Press(Integer button, WPARAM keys, POINT place) {
  context_.lastEvent = DeliveredEvent();
  if (surface_ != nullptr && surface_->TabIndex >= 0) ::SetFocus(Handle());
  if (::GetCapture() != Handle()) ::SetCapture(Handle());
  const int frame = FrameOffset();
  context_.runner.Run([&] {
    context_.pointer.Press(surface_, button, ShiftOf(keys), static_cast<float>(place.x - frame),
                           static_cast<float>(place.y - frame));
  });
}

void PointerArea::Move(WPARAM keys, POINT place) {
  const MOUSEMOVEPOINT now = DeliveredEvent();
  const MOUSEMOVEPOINT last = std::exchange(context_.lastEvent, now);
  TRACKMOUSEEVENT leaving{sizeof leaving, TME_LEAVE, Handle(), 0};
  ::TrackMouseEvent(&leaving);
  const Integer shift = ShiftOf(keys);
  const bool captured = ::GetCapture() == Handle();
  ForEachJoinedMove(last, now, [&](POINT passed) {
    // Skip positions over other windows.
    if (!captured && ::WindowFromPoint(passed) != Handle()) return;
    ::ScreenToClient(Handle(), &passed);
    MoveTo(passed, shift);
  });
  MoveTo(place, shift);
}

// Forget the last event when the pointer leaves the form, so that moves over other windows are not fetched on return.
void PointerArea::Left() {
  POINT pointer{};
  ::GetCursorPos(&pointer);
  if (::GetAncestor(::WindowFromPoint(pointer), GA_ROOT) != ::GetAncestor(Handle(), GA_ROOT)) context_.lastEvent = {};
}

void PointerArea::MoveTo(POINT place, Integer shift) {
  const int frame = FrameOffset();
  context_.runner.Run([&] {
    context_.pointer.Move(surface_, shift, static_cast<float>(place.x - frame), static_cast<float>(place.y - frame));
  });
}

void PointerArea::Release(Integer button, WPARAM keys, POINT place) {
  context_.lastEvent = DeliveredEvent();
  const bool last = !AnyButton(keys);
  const int frame = FrameOffset();
  context_.runner.Run([&] {
    // Before the handler, which may open a box. The capture loss that this posts is ignored, as no button is down by
    // then.
    if (last && ::GetCapture() == Handle()) ::ReleaseCapture();
    context_.pointer.Release(button, ShiftOf(keys), static_cast<float>(place.x - frame),
                             static_cast<float>(place.y - frame));
  });
}

bool PointerArea::ShowShape() {
  const DWORD message = ::GetMessagePos();
  POINT place{GET_X_LPARAM(message), GET_Y_LPARAM(message)};
  ::ScreenToClient(Handle(), &place);
  const int frame = FrameOffset();
  const Control* control = WindowlessControlAt(context_.form, surface_, static_cast<float>(place.x - frame),
                                               static_cast<float>(place.y - frame));
  if (control == nullptr) control = surface_;
  ::SetCursor(BuiltInCursor(control == nullptr ? BuiltIn::None : control->MousePointer));
  return true;
}

void PointerArea::Paint() {
  PAINTSTRUCT paint;
  const HDC screen = ::BeginPaint(Handle(), &paint);
  RECT client{};
  ::GetClientRect(Handle(), &client);
  PaintArea(screen, context_, surface_, {client.right, client.bottom}, paint.rcPaint);
  ::EndPaint(Handle(), &paint);
}

void PointerArea::Print(HDC target) {
  RECT client{};
  ::GetClientRect(Handle(), &client);
  PaintArea(target, context_, surface_, {client.right, client.bottom}, client);
}

}  // namespace sorvex
