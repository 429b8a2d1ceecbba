// SPDX-License-Identifier: MIT
// Running the game's handlers from a window system's callbacks. No exception may cross the system's frames: what a
// handler throws is kept and leaves the call that serves the events.
#pragma once

#include <exception>
#include <functional>
#include <utility>

namespace sorvex {

class Handlers {
 public:
  /// `afterwards` runs after every handler.
  explicit Handlers(std::function<void()> afterwards) : afterwards_(std::move(afterwards)) {}

  /// Runs `deliver`, which delivers events; `leave` makes it return when it waits in a loop of its own. Throws what the
  /// first failing handler threw meanwhile, ProgramEnded before all else.
  void Serve(const std::function<void()>& deliver, const std::function<void()>& leave = nullptr);

  /// The same, but what a handler throws comes back instead; null: nothing. ProgramEnded is thrown.
  std::exception_ptr Attempt(const std::function<void()>& deliver);

  /// Runs a handler. Does nothing outside Serve, and nothing once the program has ended.
  void Run(const std::function<void()>& handler);
  /// Keeps the exception that is being handled as one that a handler threw. Does nothing outside Serve.
  void Failed();

  /// True inside Serve, where handlers may run.
  bool MayRun() const { return innermost_ != nullptr && !ended_; }
  /// True when a handler ended the program.
  bool Ended() const { return ended_; }
  /// True when the innermost Serve is about to throw: no use in waiting.
  bool Leaving() const { return ended_ || (innermost_ != nullptr && innermost_->error); }

 private:
  struct Call {
    const std::function<void()>& leave;
    Call* outer;
    std::exception_ptr error;
  };

  void EndProgram();

  std::function<void()> afterwards_;
  Call* innermost_ = nullptr;
  bool ended_ = false;
};

}  // namespace sorvex
