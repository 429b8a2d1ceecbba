// SPDX-License-Identifier: MIT
// Running the game's handlers from the toolkit's callbacks. No exception may cross the toolkit's frames: what a handler
// throws is kept and leaves the call that serves the events.
#pragma once

#include <exception>
#include <functional>

class QEventLoop;

namespace sorvex {

class Handlers {
 public:
  /// `afterwards` runs after every handler.
  explicit Handlers(std::function<void()> afterwards) : afterwards_(std::move(afterwards)) {}

  /// Runs `deliver`, which delivers events; `loop` is the loop that it waits in, null when it does not wait. Throws
  /// what the first failing handler threw meanwhile, ProgramEnded before all else.
  void Serve(QEventLoop* loop, const std::function<void()>& deliver);

  /// Runs a handler. Does nothing outside Serve, and nothing once the program has ended.
  void Run(const std::function<void()>& handler);

  /// True inside Serve, where handlers may run.
  bool MayRun() const { return innermost_ != nullptr && !ended_; }
  /// True when a handler ended the program.
  bool Ended() const { return ended_; }
  /// True when the innermost Serve is about to throw: no use in waiting.
  bool Leaving() const { return ended_ || (innermost_ != nullptr && innermost_->error); }

 private:
  struct Call {
    QEventLoop* loop;
    Call* outer;
    std::exception_ptr error;
  };

  void EndProgram();

  std::function<void()> afterwards_;
  Call* innermost_ = nullptr;
  bool ended_ = false;
};

}  // namespace sorvex
