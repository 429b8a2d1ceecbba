// SPDX-License-Identifier: MIT
// Asynchronous sound playback. It runs on a separate thread, because a sound server may answer late or never. The
// playback code and the libraries it needs are in a shared library beside the program, which is loaded once the window
// is painted.
#pragma once

#include <QThread>
#include <QTimer>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace sorvex {

class Sounds {
 public:
  Sounds();
  /// Does not wait for sounds or the sound server: if the thread does not end within 100 ms, it is abandoned. A process
  /// that exits while the thread runs, abandoned or not, runs no destructors of objects that it may still use.
  ~Sounds();
  Sounds(const Sounds&) = delete;
  Sounds& operator=(const Sounds&) = delete;

  /// Asynchronously preloads these files and unloads all others.
  void Prepare(std::span<const std::string> paths);
  /// Requests playback of the file from its start. The request is dropped if it is late by half a second or superseded
  /// by a newer one. The desktop's bell replaces files that cannot be played, and all sounds if the library cannot be
  /// loaded; without an audio device there is silence.
  void Play(const std::string& path);

 private:
  class Worker;

  void Start();

  std::unique_ptr<QThread> thread_;
  Worker* worker_;  // lives on the thread and is deleted with it
  QTimer starting_;
};

}  // namespace sorvex
