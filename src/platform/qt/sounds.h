// SPDX-License-Identifier: MIT
// Playing wave files without waiting: files are loaded ahead, a new sound cuts off the one that plays.
#pragma once

#include <QDateTime>
#include <QSoundEffect>
#include <map>
#include <memory>
#include <span>
#include <string>

namespace sorvex {

class Sounds {
 public:
  Sounds();

  /// Keeps these files loaded and no others; a file that changed since it was loaded is loaded again.
  void Prepare(std::span<const std::string> paths);
  /// Plays the file from its start, as soon as it is loaded unless another one was asked for by then. A file that cannot
  /// be played gives the desktop's bell; without an audio device there is silence.
  void Play(const std::string& path);

 private:
  struct Wave {
    std::unique_ptr<QSoundEffect> effect;
    QDateTime changed;
    qint64 size = 0;
  };

  QSoundEffect* Load(const std::string& path);
  void StatusChanged(QSoundEffect* effect);

  std::map<std::string, Wave> waves_;
  QSoundEffect* current_ = nullptr;  // plays, or waits to be loaded
  bool waiting_ = false;             // current_ starts when it is loaded
};

}  // namespace sorvex
