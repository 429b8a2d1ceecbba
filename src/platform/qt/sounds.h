// SPDX-License-Identifier: MIT
// Sounds without delay to the start: the code that plays them, and the many libraries it needs, are loaded from a
// library beside the program once the window is painted.
#pragma once

#include <QTimer>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/qt/wave_player.h"

namespace sorvex {

class Sounds {
 public:
  Sounds();

  /// Keeps these files loaded and no others, from soon on.
  void Prepare(std::span<const std::string> paths);
  /// Plays the file from its start. A file that cannot be played, or any when the library cannot be loaded, gives the
  /// desktop's bell; without an audio device there is silence.
  void Play(const std::string& path);

 private:
  void Load();

  bool tried_ = false;                  // to load it
  std::unique_ptr<WavePlayer> player_;  // null: not loaded
  std::vector<std::string> prepared_;   // what it is to keep loaded
  QTimer loading_;                      // loads the library
};

}  // namespace sorvex
