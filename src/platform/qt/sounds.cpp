// SPDX-License-Identifier: MIT
// The sound thread, and loading the playback library on it.
#include "platform/qt/sounds.h"

#include <dlfcn.h>
#include <unistd.h>

#include <QApplication>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <utility>

#include "base/finally.h"
#include "platform/qt/wave_player.h"

namespace sorvex {
namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

// A later sound would no longer match what is on the screen.
constexpr auto kLatest = 500ms;

void RingBellSoon() {
  QMetaObject::invokeMethod(
      qApp, [] { QApplication::beep(); }, Qt::QueuedConnection);
}

// Runs the task on the worker's thread. If it runs out of memory, rings the bell instead.
template <class Task>
void Post(QObject* worker, Task task) {
  const auto guarded = [task = std::move(task)] {
    try {
      task();
    } catch (const std::exception&) {
      RingBellSoon();
    }
  };
  QMetaObject::invokeMethod(worker, guarded, Qt::QueuedConnection);
}

void LeaveProcess(int status, void* /*unused*/) {
  std::fflush(nullptr);
  ::_exit(status);
}

// Whether the sound thread of this thread's runs. While it does, the process exits without destroying anything that it
// may use or hold a lock on, also when the toolkit exits because the display is lost: before all exit handlers, `exit`
// destroys its thread's objects, of which one adds a handler that is therefore the first to run.
bool& SoundThreadRuns() {
  thread_local bool runs = false;
  thread_local const Finally atExit([] {
    if (runs) ::on_exit(&LeaveProcess, nullptr);
  });
  return runs;
}

}  // namespace

/// The sound thread's object. Other threads access only `newest`.
class Sounds::Worker final : public QObject {
 public:
  void Load();
  void Prepare(std::span<const std::string> paths);
  void Play(const std::string& path, int request, Clock::time_point asked);

  std::atomic<int> newest = 0;  // number of the newest request; older ones are superseded

 private:
  std::unique_ptr<WavePlayer> player_;  // null: not loaded
};

void Sounds::Worker::Load() {
  // Never unloaded: its code runs until the process ends.
  void* library = ::dlopen("libsorvex-sounds.so", RTLD_NOW);
  void* make = library == nullptr ? nullptr : ::dlsym(library, "MakeSorvexWavePlayer");
  if (make == nullptr) {
    std::fprintf(stderr, "Sounds cannot be played: %s\n", ::dlerror());
    return;
  }
  player_.reset(reinterpret_cast<decltype(&MakeSorvexWavePlayer)>(make)());
}

void Sounds::Worker::Prepare(std::span<const std::string> paths) {
  if (player_) player_->Prepare(paths);
}

void Sounds::Worker::Play(const std::string& path, int request, Clock::time_point asked) {
  if (request != newest || Clock::now() - asked > kLatest) return;
  if ((!player_ || !player_->Play(path)) && request == newest) RingBellSoon();
}

Sounds::Sounds() : thread_(std::make_unique<QThread>()), worker_(new Worker) {
  worker_->moveToThread(thread_.get());
  QObject::connect(thread_.get(), &QThread::finished, worker_, &QObject::deleteLater);
  Post(worker_, [worker = worker_] { worker->Load(); });
  // Delay after the first theme is loaded, by when the window is painted.
  constexpr auto kStartUp = 100ms;
  starting_.setInterval(kStartUp);
  starting_.setSingleShot(true);
  QObject::connect(&starting_, &QTimer::timeout, &starting_, [this] { Start(); });
}

Sounds::~Sounds() {
  constexpr unsigned long kPatience = 100;  // milliseconds; enough unless the sound server hangs
  if (!thread_->isRunning()) {
    delete worker_;
    return;
  }
  ++worker_->newest;
  thread_->quit();
  if (thread_->wait(kPatience))
    SoundThreadRuns() = false;
  else
    static_cast<void>(thread_.release());
}

void Sounds::Prepare(std::span<const std::string> paths) {
  if (!thread_->isRunning() && !starting_.isActive()) starting_.start();
  Post(worker_, [worker = worker_, copy = std::vector(paths.begin(), paths.end())] { worker->Prepare(copy); });
}

void Sounds::Play(const std::string& path) {
  Start();
  Post(worker_, [worker = worker_, path, request = ++worker_->newest, asked = Clock::now()] {
    worker->Play(path, request, asked);
  });
}

void Sounds::Start() {
  starting_.stop();
  if (thread_->isRunning()) return;
  SoundThreadRuns() = true;
  thread_->start();
}

}  // namespace sorvex
