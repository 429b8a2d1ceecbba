// SPDX-License-Identifier: MIT
// Turns termination signals into events.
#pragma once

#include <QSocketNotifier>
#include <array>
#include <csignal>
#include <functional>
#include <memory>

namespace sorvex {

/// During its lifetime SIGTERM, SIGINT and SIGHUP call `requested` at the next event delivery. Signals that were
/// ignored stay ignored.
class TerminationSignals {
 public:
  explicit TerminationSignals(std::function<void()> requested);
  ~TerminationSignals();
  TerminationSignals(const TerminationSignals&) = delete;
  TerminationSignals& operator=(const TerminationSignals&) = delete;

 private:
  int readEnd_ = -1;
  std::array<struct sigaction, 3> before_{};
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace sorvex
