// SPDX-License-Identifier: MIT
// A sound server of a sitting's own, which plays to nobody.
#pragma once

#include <filesystem>
#include <string>

#include "window/sitting.h"

namespace sorvex {

// Programs can connect to it.
struct SoundServer : Process {
  explicit SoundServer(const Sitting& sitting)
      : SoundServer(sitting, sitting.environment.at("PULSE_SERVER").substr(5)) {}

 private:
  SoundServer(const Sitting& sitting, const std::string& socket)
      : Process({"pulseaudio", "-n", "--daemonize=no", "--disable-shm=yes", "--exit-idle-time=-1", "-L",
                 "module-null-sink sink_name=null rate=16000 channels=1", "-L",
                 "module-native-protocol-unix socket=" + socket},
                sitting.environment) {
    Await([&] { return fs::exists(socket); }, [] { return std::string("no sound server"); });
  }
};

}  // namespace sorvex
