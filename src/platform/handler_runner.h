// SPDX-License-Identifier: MIT
// Runs the game's handlers from a window system's callbacks. No exception may pass through the system's stack frames,
// so a handler's exception is stored and rethrown by the call that delivers the events.
#pragma once

#include <exception>
#include <functional>
#include <utility>

namespace sorvex {

class HandlerRunner {
 public:
  /// `afterwards` runs after every handler that did not throw.
  explicit HandlerRunner(std::function<void()> afterwards) : afterwards_(std::move(afterwards)) {}

  /// Calls `deliver`, which delivers events. If a handler throws, calls `leave`, which must make `deliver` return from
  /// a loop of its own; may be null. Afterwards rethrows the first handler's exception, or ProgramEnded if any handler
  /// threw that.
  void Serve(const std::function<void()>& deliver, const std::function<void()>& leave = nullptr);

  /// Like Serve, but returns the exception instead of throwing it; null if there was none. ProgramEnded is still
  /// thrown.
  std::exception_ptr Attempt(const std::function<void()>& deliver);

  /// Runs a handler and stores its exception. Does nothing outside Serve, after ProgramEnded, or if `handler` is null.
  void Run(const std::function<void()>& handler);
  /// Stores the exception being handled as if a handler had thrown it. Call it inside a catch block; does nothing
  /// outside Serve.
  void StoreException();

  /// True inside Serve, where handlers may run.
  bool MayRun() const { return innermost_ != nullptr && !ended_; }
  /// True after a handler threw ProgramEnded.
  bool Ended() const { return ended_; }
  /// True if the innermost Serve is going to throw, so that `deliver` should not block any more.
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
