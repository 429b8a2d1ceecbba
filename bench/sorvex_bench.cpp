// SPDX-License-Identifier: MIT
// Times frames, contact tests, return animations and theme loads in games of three sizes, and reference workloads in
// the same run. docs/performance.md lists the limits.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <QImage>
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "game/collision.h"
#include "game/render_loop.h"
#include "game/return_item.h"
#include "highscores/panel.h"
#include "platform/desktop_properties.h"
#include "support/temp_folder.h"
#include "themes/load_theme.h"
#include "unseen_scene.h"

namespace sorvex::bench {
namespace {

// Reads every pixel of `box`, by copying it to a buffer that stays in the cache, the fastest way to do so.
void ReadPixels(const Bitmap& bitmap, const Rectangle& box) {
  std::array<Pixel, 1024> lines;
  for (int y = box.top; y < box.bottom; ++y) {
    for (int x = box.left; x < box.right; x += static_cast<int>(lines.size())) {
      const auto count = static_cast<std::size_t>(std::min(box.right - x, static_cast<int>(lines.size())));
      std::memcpy(lines.data(), bitmap.Row(y) + x, count * sizeof(Pixel));
      benchmark::DoNotOptimize(lines.data());
      benchmark::ClobberMemory();
    }
  }
}

// The minimum memory traffic of a frame inside a dirty rectangle: copying the background to the back buffer and on to
// the play field, and reading once the pictures and masks drawn there.
class FrameBytes {
 public:
  explicit FrameBytes(const Scene& scene)
      : background_(scene.form.PicBlank.Image()), backBuffer_(background_.Extent()), canvas_(background_.Extent()) {
    const frmMain& form = scene.form;
    const modVariables& state = scene.state;
    const auto add = [this](const PictureBox& surface, Integer x, Integer y) {
      drawn_.push_back({&surface.Image(), x, y});
    };
    add(form.PicPlainSprite(0), state.PlainX(0), state.PlainY(0));
    add(form.PicPlainMask(0), state.PlainX(0), state.PlainY(0));
    for (Integer i = 0; i <= state.LastItem; ++i) {
      add(form.PicSprite(i), state.ItemX(i), state.ItemY(i));
      add(form.PicMask(i), state.ItemX(i), state.ItemY(i));
    }
    add(form.picCont(0), state.ContX(0), state.ContY(0));
    add(form.PicContMask(0), state.ContX(0), state.ContY(0));
  }

  void Move(const Rectangle& box) {
    CopySurface(backBuffer_, background_, box);
    for (const Drawn& drawn : drawn_) {
      const Rectangle place = Rectangle::At(drawn.x, drawn.y, drawn.pixels->Extent());
      ReadPixels(*drawn.pixels, Intersection(place, box).Moved(-drawn.x, -drawn.y));
    }
    CopySurface(canvas_, backBuffer_, box);
    benchmark::ClobberMemory();
  }

 private:
  struct Drawn {
    const Bitmap* pixels;
    int x;
    int y;
  };

  const Bitmap& background_;
  Bitmap backBuffer_;
  Bitmap canvas_;
  std::vector<Drawn> drawn_;
};

// The minimum memory traffic of a full redraw.
void FrameLimit(benchmark::State& run, const SceneDesign& design) {
  const UnseenScene scene(design);
  FrameBytes bytes(scene);
  for (auto _ : run) bytes.Move(Rectangle::At(0, 0, design.field));
}

// The minimum memory traffic in the dirty rectangle of an item that moves by 3 pixels.
void MovingLimit(benchmark::State& run, const SceneDesign& design) {
  const UnseenScene scene(design);
  FrameBytes bytes(scene);
  const Rectangle box =
      Rectangle::At(scene.state.ItemX(0), scene.state.ItemY(0) - 4 - 3, {design.item.width, design.item.height + 3});
  for (auto _ : run) bytes.Move(box);
}

// A full redraw and both tests.
void Frame(benchmark::State& run, const SceneDesign& design) {
  UnseenScene scene(design);
  for (auto _ : run) {
    scene.game.frame.backbuffRevision = scene.game.frame.canvasRevision = 0;
    scene.game.frame.settled.reset();
    DrawAndTestFrame(scene.game);
    benchmark::ClobberMemory();
  }
}

// A frame after the dragged item moved by 3 pixels, up and down alternately.
void Moving(benchmark::State& run, const SceneDesign& design) {
  UnseenScene scene(design);
  scene.state.ItemY(0) = static_cast<Integer>(scene.state.ItemY(0) - 4);
  Integer step = 3;
  for (auto _ : run) {
    scene.state.ItemY(0) = static_cast<Integer>(scene.state.ItemY(0) - step);
    step = static_cast<Integer>(-step);
    DrawAndTestFrame(scene.game);
    benchmark::ClobberMemory();
  }
}

// A frame in which nothing changed.
void Still(benchmark::State& run, const SceneDesign& design) {
  UnseenScene scene(design);
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
  UnseenScene scene(design);
  Touches(scene, scene.form.picCD);  // from here on the work surface has the item's size
  for (auto _ : run)
    if (Touches(scene, scene.form.picCD)) run.SkipWithError("the item touches its container");
}

// The contact test on single mask pixels, as a reference.
void ContactByPixel(benchmark::State& run, const SceneDesign& design) {
  const UnseenScene scene(design);
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

// A return animation over 300 pixels.
void Slide(benchmark::State& run, const SceneDesign& design) {
  UnseenScene scene(design);
  modVariables& state = scene.state;
  const auto restX = static_cast<Integer>(state.ContX(0) + 5);
  const auto farX = static_cast<Integer>(restX + 300 < design.field.width ? restX + 300 : restX - 300);
  for (auto _ : run) {
    state.ItemX(0) = farX;
    ReturnItem(scene.game);
    benchmark::ClobberMemory();
  }
}

/// A theme on disk with the scene's sizes and the maximum number of items.
struct StoredTheme {
  explicit StoredTheme(SceneDesign design) {
    design.items = kMostItems;
    WriteTheme(UnseenScene(design), folder.Path());
  }
  TempFolder folder;
};

// The Qt front end loads a theme whose files are in the page cache.
void LoadTheme(benchmark::State& run, const SceneDesign& design, Desktop& desktop) {
  const StoredTheme theme(design);
  frmMain form;
  modVariables state;
  Game game{desktop, form, state};
  PaintDesign(desktop, form);
  BuildHighScoreRows(desktop, form);
  state.ThemeName = theme.folder.Path();
  for (auto _ : run)
    if (!sorvex::LoadTheme(game, state.ThemeName)) run.SkipWithError("no theme was loaded");
}

// Qt's decoder alone reads and decodes the same files, as a reference.
void DecodeFiles(benchmark::State& run, const SceneDesign& design) {
  const StoredTheme theme(design);
  std::vector<QString> bitmaps;
  for (const auto& file : std::filesystem::directory_iterator(theme.folder.Path()))
    if (file.path().extension() == ".bmp") bitmaps.push_back(QString::fromStdString(file.path()));
  for (auto _ : run)
    for (const QString& bitmap : bitmaps)
      if (QImage(bitmap, "BMP").isNull()) run.SkipWithError("a bitmap was not read");
}

template <class Work>
void Register(const std::string& name, const Work& work) {
  for (const SceneDesign& design : kScenes)
    benchmark::RegisterBenchmark((name + "/" + design.name).c_str(),
                                 [work, &design](benchmark::State& run) { work(run, design); });
}

void RegisterAll(Desktop& desktop) {
  Register("FrameLimit", FrameLimit);
  Register("Frame", Frame);
  Register("MovingLimit", MovingLimit);
  Register("Moving", Moving);
  Register("Still", Still);
  Register("Contact", Contact);
  Register("ContactByPixel", ContactByPixel);
  Register("Slide", Slide);
  Register("DecodeFiles", DecodeFiles);
  Register("LoadTheme",
           [&desktop](benchmark::State& run, const SceneDesign& design) { LoadTheme(run, design, desktop); });
}

}  // namespace
}  // namespace sorvex::bench

int main(int argc, char** argv) {
  // Never return freed memory to the system: whether malloc does depends on the order of frees, and the page faults of
  // getting it back would distort comparisons.
  ::mallopt(M_MMAP_THRESHOLD, 1 << 30);
  ::mallopt(M_TRIM_THRESHOLD, 1 << 30);
  ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
  const std::unique_ptr<sorvex::Desktop> desktop = sorvex::MakeDesktop(argc, argv);
  sorvex::bench::RegisterAll(*desktop);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
}
