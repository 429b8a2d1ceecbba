// SPDX-License-Identifier: MIT
// Sounds without delay to anything else. The code that plays them, and the many libraries it needs, are loaded from a
// library beside the program once the window is painted. It runs on a thread of its own, since a sound server may take
// its time to answer, or never do.
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
  /// Waits for no sound and no sound server: where the thread does not end at once, it is left behind, and the process
  /// ends without what it might still use being taken down.
  ~Sounds();
  Sounds(const Sounds&) = delete;
  Sounds& operator=(const Sounds&) = delete;

  /// Keeps these files loaded and no others, from soon on.
  void Prepare(std::span<const std::string> paths);
  /// Asks for the file to be played from its start, and is content with silence when that takes too long or a newer
  /// sound is asked for meanwhile. A file that cannot be played, or any when the library cannot be loaded, gives the
  /// desktop's bell; without an audio device there is silence.
  void Play(const std::string& path);

 private:
  class Worker;

  void Start();

  std::unique_ptr<QThread> thread_;
  Worker* worker_;  // lives on the thread and ends with it
  QTimer starting_;
};

}  // namespace sorvex
