// SPDX-License-Identifier: MIT
// A form's end: its controls still report while they go.
#include <windows.h>
#include <gtest/gtest.h>

#include "forms/choose_theme_window.h"
#include "win32/the_desktop.h"

namespace sorvex {
namespace {

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
