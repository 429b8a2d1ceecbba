// SPDX-License-Identifier: MIT
// Loads wave files and writes their samples to the audio device. Built as a shared library, see sounds.h.
#include "platform/qt/wave_player.h"

#include <QAudioDevice>
#include <QAudioFormat>
#include <QAudioSink>
#include <QByteArray>
#include <QMediaDevices>
#include <QTimer>
#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "base/files.h"
#include "base/limits.h"
#include "base/wave.h"

namespace sorvex {
namespace {

namespace fs = std::filesystem;

struct Sound {
  fs::file_time_type changed;
  std::uintmax_t size = 0;
  QAudioFormat format;  ///< invalid when the file cannot be played
  QByteArray samples;
};

// Qt has no 24-bit sample format; such samples are converted.
QAudioFormat::SampleFormat FormatOf(SampleKind kind) {
  switch (kind) {
    case SampleKind::Unsigned8: return QAudioFormat::UInt8;
    case SampleKind::Signed16: return QAudioFormat::Int16;
    case SampleKind::Signed24:
    case SampleKind::Signed32: return QAudioFormat::Int32;
    case SampleKind::Float32: return QAudioFormat::Float;
  }
  return QAudioFormat::Unknown;
}

QByteArray Widened(std::string_view samples) {
  QByteArray wide(static_cast<qsizetype>(samples.size() / 3 * 4), '\0');
  char* to = wide.data();
  for (; !samples.empty(); samples.remove_prefix(3), to += 4) std::copy_n(samples.data(), 3, to + 1);
  return wide;
}

QByteArray SamplesOf(const Wave& wave) {
  if (wave.kind == SampleKind::Signed24) return Widened(wave.samples);
  return {wave.samples.data(), static_cast<qsizetype>(wave.samples.size())};
}

class AudioPlayer final : public WavePlayer {
 public:
  AudioPlayer();

  void Prepare(std::span<const std::string> paths) override;
  bool Play(const std::string& path) override;

 private:
  const Sound* Load(const std::string& path);
  void Feed();

  std::map<std::string, Sound> sounds_;
  std::unique_ptr<QAudioSink> sink_;
  QIODevice* device_ = nullptr;  // receives the samples of the current sound
  QByteArray samples_;
  qint64 taken_ = 0;  // how many bytes of samples_ are written to it
  QTimer feeder_;     // runs until all are written
};

AudioPlayer::AudioPlayer() {
  constexpr int kFeedInterval = 20;
  feeder_.setInterval(kFeedInterval);
  QObject::connect(&feeder_, &QTimer::timeout, &feeder_, [this] { Feed(); });
  // Enumerating devices is slow: do it before the first sound.
  QMediaDevices::defaultAudioOutput();
}

void AudioPlayer::Prepare(std::span<const std::string> paths) {
  std::erase_if(sounds_, [&](const auto& sound) { return std::ranges::find(paths, sound.first) == paths.end(); });
  for (const std::string& path : paths) Load(path);
}

bool AudioPlayer::Play(const std::string& path) {
  feeder_.stop();
  if (sink_) {
    sink_->reset();
    // Deferred: its destructor delivers events, and so may play the next sound.
    sink_.release()->deleteLater();
  }
  const Sound* sound = Load(path);
  if (sound == nullptr || !sound->format.isValid()) return false;
  const QAudioDevice output = QMediaDevices::defaultAudioOutput();
  if (output.isNull()) return true;
  sink_ = std::make_unique<QAudioSink>(output, sound->format);
  device_ = sink_->start();
  samples_ = sound->samples;
  taken_ = 0;
  feeder_.start();
  Feed();
  return true;
}

void AudioPlayer::Feed() {
  const qint64 room = std::min<qint64>(sink_->bytesFree(), samples_.size() - taken_);
  if (room > 0 && device_ != nullptr)
    taken_ += std::max<qint64>(device_->write(samples_.constData() + taken_, room), 0);
  if (taken_ == samples_.size() || sink_->error() != QAudio::NoError) feeder_.stop();
}

// The loaded sound; null if there is no such file.
const Sound* AudioPlayer::Load(const std::string& path) {
  std::error_code changeUnknown;
  std::error_code sizeUnknown;
  const fs::file_time_type changed = fs::last_write_time(path, changeUnknown);
  const std::uintmax_t size = fs::file_size(path, sizeUnknown);
  if (changeUnknown || sizeUnknown) return nullptr;
  Sound& sound = sounds_[path];
  if (sound.changed == changed && sound.size == size) return &sound;
  sound = {changed, size, {}, {}};
  const std::optional<std::string> bytes = ReadFile(path, kLargestSound);
  const std::optional<Wave> wave = bytes ? ReadWave(*bytes) : std::nullopt;
  if (!wave) return &sound;
  sound.format.setSampleFormat(FormatOf(wave->kind));
  sound.format.setChannelCount(wave->channels);
  sound.format.setSampleRate(wave->sampleRate);
  sound.samples = SamplesOf(*wave);
  return &sound;
}

}  // namespace
}  // namespace sorvex

sorvex::WavePlayer* MakeSorvexWavePlayer() { return new sorvex::AudioPlayer; }
