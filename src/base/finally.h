// SPDX-License-Identifier: MIT
// Something that is done however a block is left.
#pragma once

#include <utility>

namespace sorvex {

/// Runs `action`, which throws nothing, at the end of the block that it is declared in.
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
