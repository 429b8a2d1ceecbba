// SPDX-License-Identifier: MIT
// GoogleTest's own place for what a platform has otherwise. Its Notification needs std::mutex, which the compiler's
// native thread model lacks; only GoogleTest's tests of itself ever wait for one.
#pragma once

#define GTEST_HAS_NOTIFICATION_ 1

namespace testing::internal {

class Notification {
 public:
  void Notify() { notified_ = true; }
  void WaitForNotification() const {
    while (!notified_) {
    }
  }

 private:
  volatile bool notified_ = false;
};

}  // namespace testing::internal
