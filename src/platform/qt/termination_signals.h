// SPDX-License-Identifier: MIT
// Requests to end that reach the process as signals, turned into events.
#pragma once

#include <QSocketNotifier>
#include <array>
#include <csignal>
#include <functional>
#include <memory>

namespace sorvex {

/// While it lives, SIGTERM, SIGINT and SIGHUP make `requested` run when events are delivered next;
/// those that were ignored stay so.
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
