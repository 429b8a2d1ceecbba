// SPDX-License-Identifier: MIT
// Wave files as samples, pushed to the audio device; a library of its own, see sounds.h.
#include "platform/qt/wave_player.h"

#include <QAudioDevice>
#include <QAudioFormat>
#include <QAudioSink>
#include <QByteArray>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QMediaDevices>
#include <QTimer>
#include <QWaveDecoder>
#include <algorithm>
#include <map>
#include <memory>
#include <string>

namespace sorvex {
namespace {

class AudioPlayer final : public WavePlayer {
 public:
  AudioPlayer();

  void Prepare(std::span<const std::string> paths) override;
  bool Play(const std::string& path) override;

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

AudioPlayer::AudioPlayer() {
  constexpr int kFeedInterval = 20;
  feeder_.setInterval(kFeedInterval);
  QObject::connect(&feeder_, &QTimer::timeout, &feeder_, [this] { Feed(); });
  // Finding the devices takes its time: better before the first sound.
  QMediaDevices::defaultAudioOutput();
}

void AudioPlayer::Prepare(std::span<const std::string> paths) {
  std::erase_if(waves_, [&](const auto& wave) { return std::ranges::find(paths, wave.first) == paths.end(); });
  for (const std::string& path : paths) Load(path);
}

bool AudioPlayer::Play(const std::string& path) {
  feeder_.stop();
  if (sink_) {
    sink_->reset();
    // Its destructor delivers events, and no handler may run inside the one that plays a sound.
    QTimer::singleShot(0, [cutOff = sink_.release()] { delete cutOff; });
  }
  const Wave* wave = Load(path);
  if (wave == nullptr || !wave->format.isValid()) return false;
  const QAudioDevice output = QMediaDevices::defaultAudioOutput();
  if (output.isNull()) return true;
  sink_ = std::make_unique<QAudioSink>(output, wave->format);
  sink_->setBufferSize(wave->samples.size());
  device_ = sink_->start();
  samples_ = wave->samples;
  taken_ = 0;
  Feed();
  return true;
}

// Null when there is no such file.
const AudioPlayer::Wave* AudioPlayer::Load(const std::string& path) {
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

void AudioPlayer::Feed() {
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

}  // namespace
}  // namespace sorvex

sorvex::WavePlayer* MakeSorvexWavePlayer() { return new sorvex::AudioPlayer; }
