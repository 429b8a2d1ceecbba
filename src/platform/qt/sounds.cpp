// SPDX-License-Identifier: MIT
// Loading the library that plays sounds, late and once.
#include "platform/qt/sounds.h"

#include <dlfcn.h>

#include <QApplication>
#include <cstdio>
#include <utility>

namespace sorvex {

Sounds::Sounds() {
  // From the first theme's loading on; the window is painted by then.
  constexpr int kStartUp = 100;
  loading_.setInterval(kStartUp);
  loading_.setSingleShot(true);
  QObject::connect(&loading_, &QTimer::timeout, &loading_, [this] { Load(); });
}

void Sounds::Prepare(std::span<const std::string> paths) {
  prepared_.assign(paths.begin(), paths.end());
  if (player_)
    player_->Prepare(prepared_);
  else if (!tried_ && !loading_.isActive())
    loading_.start();
}

void Sounds::Play(const std::string& path) {
  Load();
  if (!player_ || !player_->Play(path)) QApplication::beep();
}

void Sounds::Load() {
  if (std::exchange(tried_, true)) return;
  // It stays loaded: its code runs to the very end.
  void* library = ::dlopen("libsorvex-sounds.so", RTLD_NOW);
  void* make = library == nullptr ? nullptr : ::dlsym(library, "MakeSorvexWavePlayer");
  if (make == nullptr) {
    std::fprintf(stderr, "Sounds cannot be played: %s\n", ::dlerror());
    return;
  }
  player_.reset(reinterpret_cast<decltype(&MakeSorvexWavePlayer)>(make)());
  player_->Prepare(prepared_);
}

}  // namespace sorvex
