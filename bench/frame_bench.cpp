// SPDX-License-Identifier: MIT
// Times frames in a window of the front end that the program is linked with: each is composed, shown and followed by
// event delivery, as in the frame loop.
#include <algorithm>
#include <cstdio>
#include <memory>

#include "shown_scene.h"

namespace sorvex::bench {
namespace {

void BenchFrames(Desktop& desktop) {
  std::printf("ms a frame   moving      full\n");
  for (const SceneDesign& design : kScenes) {
    double moving = 1e9;
    double full = 1e9;
    PlayInWindow(desktop, design, [&](Scene& scene) {
      const auto deliver = [&] { desktop.DeliverEvents(0); };
      PrepareToMove(scene);
      ShowFullFrame(scene);
      for (int repetition = 0; repetition < 5; ++repetition) {
        moving = std::min(moving, MeanTime([&](int turn) { ShowMovingFrame(scene, turn); }, deliver));
        full = std::min(full, MeanTime([&](int) { ShowFullFrame(scene); }, deliver));
      }
    });
    std::printf("%-10s %8.3f %9.3f\n", design.name, moving, full);
    std::fflush(stdout);
  }
}

}  // namespace
}  // namespace sorvex::bench

int main(int argc, char** argv) { sorvex::bench::BenchFrames(*sorvex::MakeDesktop(argc, argv)); }
