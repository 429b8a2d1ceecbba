// SPDX-License-Identifier: MIT
// Requests to end that reach the process as signals, turned into events.
#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace sorvex {

/// While it lives, SIGTERM, SIGINT and SIGHUP make `requested` run when events are delivered next.
class TerminationSignals {
 public:
  explicit TerminationSignals(std::function<void()> requested);
  ~TerminationSignals();
  TerminationSignals(const TerminationSignals&) = delete;
  TerminationSignals& operator=(const TerminationSignals&) = delete;

 private:
  int readEnd_ = -1;
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace sorvex
