// SPDX-License-Identifier: MIT
// The desktop on Linux by itself: what reaches it from outside the game.
#include <gtest/gtest.h>

#include <QTimer>
#include <cstdlib>
#include <memory>
#include <new>

#include "platform/desktop.h"

namespace sorvex {
namespace {

std::unique_ptr<Desktop> MakeUnseenDesktop() {
  static char name[] = "test";
  static char* arguments[] = {name, nullptr};
  static int count = 1;
  ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  return MakeDesktop(count, arguments);
}

TEST(QtDesktop, ThrowsWhatLeavesOneEventsDeliveryOnceAllEventsAreDelivered) {
  const auto desktop = MakeUnseenDesktop();
  bool delivered = false;
  QTimer::singleShot(0, [] { throw std::bad_alloc(); });
  QTimer::singleShot(0, [&] { delivered = true; });
  EXPECT_THROW(desktop->DeliverEvents(0), std::bad_alloc);
  EXPECT_TRUE(delivered) << "the toolkit's own frames were not torn";
}

}  // namespace
}  // namespace sorvex
