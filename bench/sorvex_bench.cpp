// SPDX-License-Identifier: MIT
// Times one frame and one contact test in games of three sizes, beside yardsticks timed in the same run.
#include <benchmark/benchmark.h>

#include <cstring>
#include <string>
#include <vector>

#include "game/collision.h"
#include "game/render_loop.h"
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

// A full redraw and both tests.
void Frame(benchmark::State& run, const SceneDesign& design) {
  Scene scene(design, kSeed);
  for (auto _ : run) {
    DrawAndTestFrame(scene.game);
    benchmark::ClobberMemory();
  }
}

bool Touches(const Scene& scene, PictureBox& work) {
  const modVariables& state = scene.state;
  return HitsContainer(state.ItemX(0), state.ItemY(0), state.ContX(0), state.ContY(0), scene.form.PicMask(0),
                       scene.form.PicContMask(0), work);
}

void Contact(benchmark::State& run, const SceneDesign& design) {
  Scene scene(design, kSeed);
  Touches(scene, scene.form.picCD);  // from here on the work surface has the item's size
  for (auto _ : run) {
    if (Touches(scene, scene.form.picCD)) run.SkipWithError("the item touches its container");
  }
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
  Register("Contact", Contact);
  Register("ContactByPixel", ContactByPixel);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
}
