// SPDX-License-Identifier: MIT
// A scope guard.
#pragma once

#include <utility>

namespace sorvex {

/// Runs `action` when it goes out of scope, also during stack unwinding. `action` must not throw.
template <class Action>
class Finally {
 public:
  explicit Finally(Action action) : action_(std::move(action)) {}
  ~Finally() { action_(); }
  Finally(const Finally&) = delete;
  Finally& operator=(const Finally&) = delete;

 private:
  Action action_;
};

}  // namespace sorvex
