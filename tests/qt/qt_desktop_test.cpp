// SPDX-License-Identifier: MIT
// The desktop on Linux by itself: what reaches it from outside the game.
#include <gtest/gtest.h>

#include <QTimer>
#include <csignal>
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

TEST(QtDesktop, IsEndedBySignalsButNotByThoseThatWereIgnored) {
  std::signal(SIGHUP, SIG_IGN);
  {
    const auto desktop = MakeUnseenDesktop();
    std::raise(SIGHUP);
    EXPECT_NO_THROW(desktop->DeliverEvents(1));
    std::raise(SIGTERM);
    EXPECT_THROW(desktop->DeliverEvents(1000), ProgramEnded);
  }
  EXPECT_EQ(std::signal(SIGHUP, SIG_DFL), SIG_IGN) << "left as it was";
  EXPECT_EQ(std::signal(SIGTERM, SIG_DFL), SIG_DFL);
}

}  // namespace
}  // namespace sorvex
