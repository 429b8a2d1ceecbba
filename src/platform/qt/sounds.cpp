// SPDX-License-Identifier: MIT
// Wave files as samples, pushed to the audio device.
#include "platform/qt/sounds.h"

#include <QApplication>
#include <QAudioDevice>
#include <QFile>
#include <QFileInfo>
#include <QMediaDevices>
#include <QWaveDecoder>
#include <algorithm>

namespace sorvex {

Sounds::Sounds() {
  constexpr int kFeedInterval = 20;
  feeder_.setInterval(kFeedInterval);
  QObject::connect(&feeder_, &QTimer::timeout, &feeder_, [this] { Feed(); });
  // Finding the devices takes its time: better before the first sound, but not before the window is painted.
  constexpr int kStartUp = 100;
  QTimer::singleShot(kStartUp, &feeder_, [] { QMediaDevices::defaultAudioOutput(); });
}

void Sounds::Prepare(std::span<const std::string> paths) {
  std::erase_if(waves_, [&](const auto& wave) { return std::ranges::find(paths, wave.first) == paths.end(); });
  for (const std::string& path : paths) Load(path);
}

void Sounds::Play(const std::string& path) {
  feeder_.stop();
  if (sink_) {
    sink_->reset();
    // Its destructor delivers events, and no handler may run inside the one that plays a sound.
    QTimer::singleShot(0, [cutOff = sink_.release()] { delete cutOff; });
  }
  const Wave* wave = Load(path);
  if (wave == nullptr || !wave->format.isValid()) {
    QApplication::beep();
    return;
  }
  const QAudioDevice output = QMediaDevices::defaultAudioOutput();
  if (output.isNull()) return;
  sink_ = std::make_unique<QAudioSink>(output, wave->format);
  sink_->setBufferSize(wave->samples.size());
  device_ = sink_->start();
  samples_ = wave->samples;
  taken_ = 0;
  Feed();
}

// Null when there is no such file.
const Sounds::Wave* Sounds::Load(const std::string& path) {
  const QFileInfo info(QFile::decodeName(QByteArray::fromStdString(path)));
  if (!info.isFile()) return nullptr;
  Wave& wave = waves_[path];
  if (wave.changed == info.lastModified() && wave.size == info.size()) return &wave;
  wave = {info.lastModified(), info.size(), {}, {}};
  QFile file(info.absoluteFilePath());
  QWaveDecoder decoder(&file);
  if (!file.open(QIODevice::ReadOnly) || !decoder.open(QIODevice::ReadOnly)) return &wave;
  wave.format = decoder.audioFormat();
  wave.samples = decoder.readAll();
  return &wave;
}

void Sounds::Feed() {
  // At first as much as any sound server holds, though it may claim less: so the sound plays on while a slide or a box
  // keeps the program busy.
  constexpr qint64 kAtFirst = 1 << 20;
  const qint64 room = std::min<qint64>(taken_ == 0 ? kAtFirst : sink_->bytesFree(), samples_.size() - taken_);
  const qint64 taken = room > 0 && device_ != nullptr ? device_->write(samples_.constData() + taken_, room) : 0;
  taken_ += std::max<qint64>(taken, 0);
  if (taken_ == samples_.size() || sink_->error() != QAudio::NoError)
    feeder_.stop();
  else if (!feeder_.isActive())
    feeder_.start();
}

}  // namespace sorvex
