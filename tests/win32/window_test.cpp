// SPDX-License-Identifier: MIT
// What becomes of pointer input that the system joins, or takes away, and of a form whose controls report while they
// go.
#include <windows.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "forms/choose_theme_window.h"
#include "forms/main_window.h"
#include "platform/desktop_properties.h"
#include "win32/the_desktop.h"

namespace sorvex {
namespace {

using Events = std::vector<std::string>;

// A window with a field that notes what happens to it. The system's own functions move the pointer.
class APointer : public testing::Test {
 protected:
  /// Runs `story` while the window is shown.
  void Play(const std::function<void()>& story) {
    PaintDesign(desktop_, form_);
    form_.Caption = "Sorvex pointer test";
    SetClientSize(form_, {335, 294}, desktop_.TwipsPerPixel());
    const auto note = [this](const std::string& what) {
      return [this, what](Integer, Integer, float x, float y) {
        events_.push_back(what + std::to_string(std::lround(x)) + "," + std::to_string(std::lround(y)));
      };
    };
    form_.PicCanvas.MouseDown = note("down ");
    form_.PicCanvas.MouseMove = note("move ");
    form_.PicCanvas.MouseUp = [this](Integer, Integer, float, float) { events_.push_back("up"); };
    form_.tmrChangePicBack.Interval = 1;
    form_.tmrChangePicBack.Tick = [&, told = false]() mutable {
      if (std::exchange(told, true)) return;
      window_ = ::FindWindowA(nullptr, form_.Caption.c_str());
      EXPECT_NE(window_, nullptr);
      story();
      form_.Loaded = false;
    };
    form_.tmrChangePicBack.Start(desktop_.TickCount());
    desktop_.Show(form_, nullptr);
  }

  /// To a pixel of the field, with a button going down or up or neither.
  void Send(int x, int y, DWORD button = 0) {
    POINT place{10 + x, 10 + y};
    ::ClientToScreen(window_, &place);
    const auto scaled = [](LONG pixel, int screen) { return (pixel * 65536 + 32768) / ::GetSystemMetrics(screen); };
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | button;
    input.mi.dx = scaled(place.x, SM_CXSCREEN);
    input.mi.dy = scaled(place.y, SM_CYSCREEN);
    EXPECT_EQ(::SendInput(1, &input, sizeof input), 1U);
  }

  Events Delivered() {
    for (int i = 0; i < 3; ++i) desktop_.DeliverEvents(1);
    return std::exchange(events_, {});
  }

  HWND window_ = nullptr;

 private:
  Desktop& desktop_ = TheDesktop();
  frmMain form_;
  Events events_;
};

TEST_F(APointer, IsSeenAtEveryPlaceThatItPassed) {
  Play([this] {
    Send(30, 40);
    EXPECT_EQ(Delivered(), Events{"move 30,40"});
    Send(50, 60);
    Send(50, 60, MOUSEEVENTF_LEFTDOWN);
    for (const auto& [x, y] : {std::pair{70, 80}, {70, 20}, {-5, -7}, {400, 300}, {90, 100}}) Send(x, y);
    Send(90, 100, MOUSEEVENTF_LEFTUP);
    EXPECT_EQ(Delivered(), (Events{"move 50,60", "down 50,60", "move 70,80", "move 70,20", "move -5,-7", "move 400,300",
                                   "move 90,100", "up"}));
  });
}

TEST_F(APointer, IsNotSeenWhereItWasOverAnotherWindow) {
  Play([this] {
    Send(30, 40);
    Delivered();
    POINT corner{100, 20};
    ::ClientToScreen(window_, &corner);
    // One that is still there when the pointer is back, and one that is not.
    for (const bool stays : {true, false}) {
      const HWND other = ::CreateWindowExW(WS_EX_TOPMOST, L"STATIC", L"", WS_POPUP | WS_VISIBLE, corner.x, corner.y,
                                           100, 100, nullptr, nullptr, nullptr, nullptr);
      for (const int x : {120, 130, 140}) Send(x, 50);
      if (stays) Send(60, 60);
      EXPECT_EQ(Delivered(), stays ? Events{"move 60,60"} : Events{});
      ::Sleep(300);  // the system looks only now and then whether the pointer left
      Delivered();
      ::DestroyWindow(other);
      Send(61, 60);
      EXPECT_EQ(Delivered(), Events{"move 61,60"});
    }
  });
}

// The button goes up where no window of the program is: only who holds the pointer, or was told of its loss, knows.
TEST_F(APointer, LetsGoWhateverInterrupts) {
  Play([this] {
    const auto tap = [](WORD key) {
      for (const DWORD flags : {DWORD{0}, DWORD{KEYEVENTF_KEYUP}}) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = key;
        input.ki.dwFlags = flags;
        EXPECT_EQ(::SendInput(1, &input, sizeof input), 1U);
      }
    };
    const std::tuple<const char*, std::function<void()>, int> cases[] = {
        {"nothing", [] {}, 1},
        {"a lost capture", [] { ::ReleaseCapture(); }, 1},
        {"a second button", [this] { Send(50, 60, MOUSEEVENTF_RIGHTDOWN), Send(50, 60, MOUSEEVENTF_RIGHTUP); }, 2},
        {"the menu key", [tap] { tap(VK_MENU); }, 1},
        {"the other menu key", [tap] { tap(VK_F10); }, 1},
    };
    for (const auto& [what, interrupt, releases] : cases) {
      Send(50, 60);
      Delivered();
      Send(50, 60, MOUSEEVENTF_LEFTDOWN);
      EXPECT_EQ(Delivered(), Events{"down 50,60"}) << what;
      interrupt();
      Events events = Delivered();
      Send(700, 500, MOUSEEVENTF_LEFTUP);
      for (const std::string& event : Delivered()) events.push_back(event);
      EXPECT_EQ(std::ranges::count(events, "up"), releases) << what << testing::PrintToString(events);
    }
  });
}

// The system may go on after a fault in a window procedure as if there had been none.
int faults = 0;

LONG CALLBACK CountFault(EXCEPTION_POINTERS* exception) {
  if (exception->ExceptionRecord->ExceptionCode == EXCEPTION_ACCESS_VIOLATION) ++faults;
  return EXCEPTION_CONTINUE_SEARCH;
}

TEST(AForm, ClosesWithTheFocusOnItsList) {
  void* handler = ::AddVectoredExceptionHandler(1, &CountFault);
  for (int i = 0; i < 20; ++i) {
    frmChooseTheme form(TheDesktop().TwipsPerPixel());
    form.List1.List = {"One", "Two"};
    Timer closing;
    closing.Interval = 1;
    closing.Tick = [&] { form.Loaded = false; };
    closing.Start(TheDesktop().TickCount());
    form.Controls.push_back(&closing);
    TheDesktop().Show(form, nullptr);
  }
  ::RemoveVectoredExceptionHandler(handler);
  EXPECT_EQ(faults, 0);
}

}  // namespace
}  // namespace sorvex
