// SPDX-License-Identifier: MIT
// What the library with the sound code offers the program.
#pragma once

#include <span>
#include <string>

namespace sorvex {

/// Plays wave files without waiting for their end; a new sound cuts off the one that plays. It lives on one thread,
/// whose event loop feeds the audio device, and waits for the sound server there.
class WavePlayer {
 public:
  virtual ~WavePlayer() = default;

  /// Keeps these files loaded and no others; a file that changed since it was loaded is loaded again.
  virtual void Prepare(std::span<const std::string> paths) = 0;
  /// Plays the file from its start and returns true, also in silence where there is no audio device. False when the
  /// file cannot be played.
  virtual bool Play(const std::string& path) = 0;
};

}  // namespace sorvex

/// The library's only function. The caller owns what it returns.
extern "C" sorvex::WavePlayer* MakeSorvexWavePlayer();
