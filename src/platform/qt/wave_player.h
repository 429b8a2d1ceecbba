// SPDX-License-Identifier: MIT
// What the library with the sound code offers the program.
#pragma once

#include <span>
#include <string>

namespace sorvex {

/// Plays wave files without waiting; a new sound cuts off the one that plays.
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
