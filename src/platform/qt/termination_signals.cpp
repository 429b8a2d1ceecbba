// SPDX-License-Identifier: MIT
// A pipe that the signal handler writes to and the event loop reads from.
#include "platform/qt/termination_signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <utility>

namespace sorvex {
namespace {

constexpr int kSignals[] = {SIGTERM, SIGINT, SIGHUP};

// A signal handler reaches nothing but statics.
volatile std::sig_atomic_t writeEnd = -1;

extern "C" void NoteSignal(int /*number*/) {
  const int savedErrno = errno;
  const char note = 0;
  [[maybe_unused]] const ssize_t written = ::write(writeEnd, &note, 1);
  errno = savedErrno;
}

void SetHandler(void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  for (const int number : kSignals) ::sigaction(number, &action, nullptr);
}

}  // namespace

TerminationSignals::TerminationSignals(std::function<void()> requested) {
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return;  // signals keep ending the process their own way
  readEnd_ = ends[0];
  writeEnd = ends[1];
  notifier_ = std::make_unique<QSocketNotifier>(readEnd_, QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                   [this, requested = std::move(requested)] {
                     char notes[16];
                     while (::read(readEnd_, notes, sizeof notes) > 0) continue;
                     requested();
                   });
  SetHandler(&NoteSignal);
}

TerminationSignals::~TerminationSignals() {
  if (readEnd_ < 0) return;
  SetHandler(SIG_DFL);
  notifier_.reset();
  ::close(readEnd_);
  ::close(writeEnd);
}

}  // namespace sorvex
