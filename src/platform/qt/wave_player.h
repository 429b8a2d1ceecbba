// SPDX-License-Identifier: MIT
// The interface of the shared library that plays sounds.
#pragma once

#include <span>
#include <string>

namespace sorvex {

/// Plays wave files asynchronously; a new sound cuts off the one that is playing. It must be used on one thread only,
/// which runs an event loop that feeds the audio device. Calls may block on the sound server.
class WavePlayer {
 public:
  virtual ~WavePlayer() = default;

  /// Preloads these files and unloads all others; a file that has changed is loaded again.
  virtual void Prepare(std::span<const std::string> paths) = 0;
  /// Starts playing the file from its start. Returns false if it is not a playable file; true otherwise, even without
  /// an audio device.
  virtual bool Play(const std::string& path) = 0;
};

}  // namespace sorvex

/// The library's only function. The caller owns the result.
extern "C" sorvex::WavePlayer* MakeSorvexWavePlayer();
