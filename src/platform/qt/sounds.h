// SPDX-License-Identifier: MIT
// Playing wave files without waiting: files are loaded ahead, a new sound cuts off the one that plays.
#pragma once

#include <QAudioFormat>
#include <QAudioSink>
#include <QByteArray>
#include <QDateTime>
#include <QTimer>
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
  /// Plays the file from its start. A file that cannot be played gives the desktop's bell; without an audio device
  /// there is silence.
  void Play(const std::string& path);

 private:
  struct Wave {
    QDateTime changed;
    qint64 size = 0;
    QAudioFormat format;  ///< invalid when the file cannot be played
    QByteArray samples;
  };

  const Wave* Load(const std::string& path);
  void Feed();

  std::map<std::string, Wave> waves_;
  std::unique_ptr<QAudioSink> sink_;
  QIODevice* device_ = nullptr;  // takes the samples of what plays
  QByteArray samples_;
  qint64 taken_ = 0;  // how many bytes of samples_ it has
  QTimer feeder_;     // runs while it has not all of them
};

}  // namespace sorvex
