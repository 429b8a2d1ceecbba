// SPDX-License-Identifier: MIT
// A pipe that the signal handler writes to and the event loop reads from.
#include "platform/qt/termination_signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <iterator>
#include <utility>

namespace sorvex {
namespace {

constexpr int kSignals[] = {SIGTERM, SIGINT, SIGHUP};

// Static, because a signal handler has no other way to reach it.
volatile std::sig_atomic_t writeEnd = -1;

extern "C" void NoteSignal(int /*number*/) {
  const int savedErrno = errno;
  const char note = 0;
  [[maybe_unused]] const ssize_t written = ::write(writeEnd, &note, 1);
  errno = savedErrno;
}

}  // namespace

TerminationSignals::TerminationSignals(std::function<void()> requested) {
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return;  // signals keep their default action
  readEnd_ = ends[0];
  writeEnd = ends[1];
  notifier_ = std::make_unique<QSocketNotifier>(readEnd_, QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                   [this, requested = std::move(requested)] {
                     char notes[16];
                     while (::read(readEnd_, notes, sizeof notes) > 0) continue;
                     requested();
                   });
  struct sigaction action {};
  action.sa_handler = &NoteSignal;
  action.sa_flags = SA_RESTART;
  for (std::size_t i = 0; i < std::size(kSignals); ++i) {
    ::sigaction(kSignals[i], nullptr, &before_[i]);
    if (before_[i].sa_handler != SIG_IGN) ::sigaction(kSignals[i], &action, nullptr);
  }
}

TerminationSignals::~TerminationSignals() {
  if (readEnd_ < 0) return;
  for (std::size_t i = 0; i < std::size(kSignals); ++i) ::sigaction(kSignals[i], &before_[i], nullptr);
  notifier_.reset();
  ::close(readEnd_);
  ::close(writeEnd);
}

}  // namespace sorvex
