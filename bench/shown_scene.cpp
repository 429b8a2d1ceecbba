// SPDX-License-Identifier: MIT
// Playing generated games in windows.
#include "shown_scene.h"

#include <chrono>

#include "game/render_loop.h"

namespace sorvex::bench {

void PlayInWindow(Desktop& desktop, const SceneDesign& design, const std::function<void(Scene&)>& play) {
  Scene scene(desktop, design);
  const Size canvas = scene.form.PicCanvas.OuterSize();
  SetClientSize(scene.form, {canvas.width + 16, canvas.height + 16}, desktop.TwipsPerPixel());
  Timer& timer = scene.form.tmrChangePicBack;
  timer.Tick = [&] {
    timer.Enabled = false;
    play(scene);
    scene.form.Loaded = false;
  };
  timer.Start(desktop.TickCount());
  desktop.Show(scene.form, nullptr);
}

void PrepareToMove(Scene& scene) { scene.state.ItemY(0) = static_cast<Integer>(scene.state.ItemY(0) - 4); }

void ShowMovingFrame(Scene& scene, int turn) {
  scene.state.ItemY(0) = static_cast<Integer>(scene.state.ItemY(0) + (turn % 2 == 0 ? -3 : 3));
  DrawAndTestFrame(scene.game);
}

void ShowFullFrame(Scene& scene) {
  scene.game.frame = {};
  DrawAndTestFrame(scene.game);
}

double MeanTime(const std::function<void(int)>& work, const std::function<void()>& await) {
  constexpr int kTimes = 60;
  using Clock = std::chrono::steady_clock;
  const auto began = Clock::now();
  for (int i = 0; i < kTimes; ++i) {
    work(i);
    await();
  }
  return std::chrono::duration<double, std::milli>(Clock::now() - began).count() / kTimes;
}

}  // namespace sorvex::bench
