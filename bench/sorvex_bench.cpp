// SPDX-License-Identifier: MIT
// Times frames, contact tests, slides and theme loads in games of three sizes, beside yardsticks timed in the same run.
// docs/performance.md says what each may cost.
#include <benchmark/benchmark.h>

#include <cstring>
#include <string>

#include "game/collision.h"
#include "game/render_loop.h"
#include "game/return_item.h"
#include "scene.h"

namespace sorvex::bench {
namespace {

constexpr std::uint32_t kSeed = 20261124;

// Copies one field of pixels.
void Memcpy(benchmark::State& run, const SceneDesign& design) {
  const Bitmap from(design.field, kWhite);
  Bitmap to(design.field);
  for (auto _ : run) {
    std::memcpy(to.Row(0), from.Row(0), from.Pixels().size_bytes());
    benchmark::DoNotOptimize(to.Row(0));
    benchmark::ClobberMemory();
  }
}

// A full redraw and both tests: nothing is known of the last frame.
void Frame(benchmark::State& run, const SceneDesign& design) {
  Scene scene(design, kSeed);
  for (auto _ : run) {
    scene.game.frame.backbuffRevision = scene.game.frame.canvasRevision = 0;
    scene.game.frame.settled = false;
    DrawAndTestFrame(scene.game);
    benchmark::ClobberMemory();
  }
}

// The frame after the dragged item moved by 3 pixels, there and back.
void Moving(benchmark::State& run, const SceneDesign& design) {
  Scene scene(design, kSeed);
  scene.state.ItemY(0) = static_cast<Integer>(scene.state.ItemY(0) - 4);
  Integer step = 3;
  for (auto _ : run) {
    scene.state.ItemY(0) = static_cast<Integer>(scene.state.ItemY(0) - step);
    step = static_cast<Integer>(-step);
    DrawAndTestFrame(scene.game);
    benchmark::ClobberMemory();
  }
}

// The next frame when nothing changed.
void Still(benchmark::State& run, const SceneDesign& design) {
  Scene scene(design, kSeed);
  while (DrawAndTestFrame(scene.game)) {
  }
  for (auto _ : run)
    if (DrawAndTestFrame(scene.game)) run.SkipWithError("a frame that changes nothing was drawn");
}

bool Touches(const Scene& scene, PictureBox& work) {
  const modVariables& state = scene.state;
  return HitsContainer(state.ItemX(0), state.ItemY(0), state.ContX(0), state.ContY(0), scene.form.PicMask(0),
                       scene.form.PicContMask(0), work);
}

void Contact(benchmark::State& run, const SceneDesign& design) {
  Scene scene(design, kSeed);
  Touches(scene, scene.form.picCD);  // from here on the work surface has the item's size
  for (auto _ : run)
    if (Touches(scene, scene.form.picCD)) run.SkipWithError("the item touches its container");
}

// The same question asked of the two masks' pixels, one by one.
void ContactByPixel(benchmark::State& run, const SceneDesign& design) {
  const Scene scene(design, kSeed);
  const Bitmap& item = scene.form.PicMask(0).Image();
  const Bitmap& container = scene.form.PicContMask(0).Image();
  const int dx = scene.state.ItemX(0) - scene.state.ContX(0);
  const int dy = scene.state.ItemY(0) - scene.state.ContY(0);
  const Rectangle shared = Intersection(item.Bounds(), container.Bounds().Moved(-dx, -dy));
  for (auto _ : run) {
    bool touches = false;
    for (int y = shared.top; y < shared.bottom && !touches; ++y)
      for (int x = shared.left; x < shared.right && !touches; ++x)
        touches = item.At(x, y) == kBlack && (container.At(x + dx, y + dy) & 0xC00000) == 0;
    benchmark::DoNotOptimize(touches);
    if (touches) run.SkipWithError("the item touches its container");
  }
}

// The whole slide of an item from 300 pixels away back to its rest.
void Slide(benchmark::State& run, const SceneDesign& design) {
  Scene scene(design, kSeed);
  modVariables& state = scene.state;
  const auto restX = static_cast<Integer>(state.ContX(0) + 5);
  const auto farX = static_cast<Integer>(restX + 300 < design.field.width ? restX + 300 : restX - 300);
  for (auto _ : run) {
    state.ItemX(0) = farX;
    ReturnItem(scene.game);
    benchmark::ClobberMemory();
  }
}

void Register(const std::string& name, void (*work)(benchmark::State&, const SceneDesign&)) {
  for (const SceneDesign& design : kScenes)
    benchmark::RegisterBenchmark((name + "/" + design.name).c_str(),
                                 [work, &design](benchmark::State& run) { work(run, design); });
}

}  // namespace
}  // namespace sorvex::bench

int main(int argc, char** argv) {
  using namespace sorvex::bench;
  Register("Memcpy", Memcpy);
  Register("Frame", Frame);
  Register("Moving", Moving);
  Register("Still", Still);
  Register("Contact", Contact);
  Register("ContactByPixel", ContactByPixel);
  Register("Slide", Slide);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
}
