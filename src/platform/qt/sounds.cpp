// SPDX-License-Identifier: MIT
// Sound effects for wave files.
#include "platform/qt/sounds.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QMediaDevices>
#include <QAudioDevice>
#include <QUrl>
#include <algorithm>

namespace sorvex {

Sounds::Sounds() = default;

void Sounds::Prepare(std::span<const std::string> paths) {
  std::erase_if(waves_, [&](const auto& wave) {
    if (std::ranges::find(paths, wave.first) != paths.end()) return false;
    if (wave.second.effect.get() == current_) current_ = nullptr;
    return true;
  });
  for (const std::string& path : paths) Load(path);
}

void Sounds::Play(const std::string& path) {
  if (current_ != nullptr) current_->stop();
  current_ = Load(path);
  waiting_ = true;
  if (current_ == nullptr)
    QApplication::beep();
  else
    StatusChanged(current_);
}

// Null when there is no such file.
QSoundEffect* Sounds::Load(const std::string& path) {
  const QFileInfo file(QFile::decodeName(QByteArray::fromStdString(path)));
  if (!file.isFile()) return nullptr;
  Wave& wave = waves_[path];
  if (wave.effect && wave.changed == file.lastModified() && wave.size == file.size()) return wave.effect.get();
  if (wave.effect.get() == current_) current_ = nullptr;
  wave.effect.reset();  // the toolkit shares what it loaded among the effects of one file: the old one goes first
  wave = {std::make_unique<QSoundEffect>(), file.lastModified(), file.size()};
  QSoundEffect* effect = wave.effect.get();
  QObject::connect(effect, &QSoundEffect::statusChanged, effect, [this, effect] { StatusChanged(effect); });
  effect->setSource(QUrl::fromLocalFile(file.absoluteFilePath()));
  return effect;
}

void Sounds::StatusChanged(QSoundEffect* effect) {
  if (effect != current_ || !waiting_) return;
  if (effect->status() == QSoundEffect::Ready) {
    waiting_ = false;
    effect->play();
  } else if (effect->status() == QSoundEffect::Error) {
    waiting_ = false;
    QApplication::beep();
  }
}

}  // namespace sorvex
