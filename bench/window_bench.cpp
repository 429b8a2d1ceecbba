// SPDX-License-Identifier: MIT
// Measures real windows on an empty X screen and prints each result beside its limit. docs/performance.md says how to
// run it.
#include <xcb/xcb.h>

#include <QApplication>
#include <QPainter>
#include <QWidget>
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "platform/qt/built_ins.h"
#include "platform/qt/images.h"
#include "shown_scene.h"
#include "support/temp_folder.h"
#include "unseen_scene.h"
#include "window/player.h"
#include "window/process.h"

namespace sorvex::bench {
namespace {

using Clock = std::chrono::steady_clock;

double Milliseconds(Clock::duration time) { return std::chrono::duration<double, std::milli>(time).count(); }

double Median(std::vector<double> values) {
  std::ranges::nth_element(values, values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2));
  return values[values.size() / 2];
}

void Print(const std::string& what, double value, const char* unit, double mark) {
  std::printf("%-34s %10.3f %-4s at most %10.3f   %s\n", what.c_str(), value, unit, mark,
              value <= mark ? "holds" : "does not hold");
  std::fflush(stdout);
}

// Blocks until the X server has processed all requests of this program.
void WaitForServer() {
  xcb_connection_t* server = qApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
  std::free(::xcb_get_input_focus_reply(server, ::xcb_get_input_focus(server), nullptr));
}

// The mean time of a call in milliseconds, including its drawing by the X server.
double TimeShown(const std::function<void(int)>& work) { return MeanTime(work, WaitForServer); }

/// A minimal widget that shows a picture.
class BarePicture final : public QWidget {
 public:
  explicit BarePicture(const QImage& image) : image_(image) { setFixedSize(image.size()); }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override { QPainter(this).drawImage(0, 0, image_); }

 private:
  QImage image_;
};

struct FrameTimes {
  double moving = 1e9;
  double full = 1e9;   // composed and shown
  double shown = 1e9;  // shown only
  double bare = 1e9;
};

// Call it while the form is shown. Takes the minimum of five interleaved repetitions.
FrameTimes TimeFrames(Scene& scene) {
  // The windows must not cover each other.
  for (QWidget* window : QApplication::topLevelWidgets()) window->move(0, 0);
  const Bitmap picture = scene.form.picBg1.Image();
  BarePicture bare(ViewOf(picture));
  bare.move(scene.form.PicCanvas.ScaleSize().width + 100, 0);
  bare.show();
  for (const auto began = Clock::now(); Clock::now() - began < std::chrono::seconds(1);)
    scene.game.desktop.DeliverEvents(10);

  FrameTimes least;
  const Rectangle field = scene.form.PicCanvas.Image().Bounds();
  PrepareToMove(scene);
  for (int repetition = 0; repetition < 5; ++repetition) {
    least.moving = std::min(least.moving, TimeShown([&](int turn) { ShowMovingFrame(scene, turn); }));
    least.full = std::min(least.full, TimeShown([&](int) { ShowFullFrame(scene); }));
    least.shown = std::min(
        least.shown, TimeShown([&](int) { scene.game.desktop.Refresh(scene.form.PicCanvas, std::array{field}); }));
    least.bare = std::min(least.bare, TimeShown([&](int) { bare.repaint(); }));
  }
  return least;
}

void BenchFrames(int& argc, char** argv) {
  const std::unique_ptr<Desktop> desktop = MakeDesktop(argc, argv);
  std::vector<FrameTimes> times;
  for (const SceneDesign& design : kScenes) {
    PlayInWindow(*desktop, design, [&](Scene& scene) { times.push_back(TimeFrames(scene)); });
    Print(std::string("full frame composed, shown/") + design.name, times.back().full, "ms", 1.25 * times.back().bare);
    Print(std::string("full frame shown/") + design.name, times.back().shown, "ms", 1.25 * times.back().bare);
  }
  Print("moving/M", times[1].moving, "ms", 1.5 * times.front().moving);
  Print("moving/L", times.back().moving, "ms", 1.5 * times.front().moving);
}

/// The X screen and the programs started on it, isolated from the user's desktop.
class Stage {
 public:
  Stage() {
    std::filesystem::create_directories(home_.Path() / "runtime");
    std::filesystem::permissions(home_.Path() / "runtime", std::filesystem::perms::owner_all);
  }

  Process Start(const std::filesystem::path& program) const {
    return {{program.string()},
            {{"DISPLAY", display_},
             {"HOME", home_.Path()},
             {"XDG_RUNTIME_DIR", home_.Path() / "runtime"},
             {"LANG", "C.UTF-8"}}};
  }

  /// Waits until something is painted on the otherwise black screen; returns the window's client area in screen pixels.
  Rectangle AwaitWindow(const std::string& title) {
    Rectangle client;
    const auto painted = [&] {
      const Player::WindowId window = player.Find(title);
      if (window == 0) return false;
      client = player.ClientArea(window);
      return player.Look(Rectangle::At(client.left + 3, client.top + 3, {1, 1})).At(0, 0) != kBlack;
    };
    const auto began = Clock::now();
    while (!painted()) {
      if (Clock::now() - began > kPatience) throw std::runtime_error("no window " + title);
      std::this_thread::sleep_for(std::chrono::microseconds(500));
    }
    return client;
  }

 private:
  std::string display_ = std::getenv("DISPLAY");
  TempFolder home_;

 public:
  Player player{display_, true};
};

void CopyProgram(const std::filesystem::path& to) {
  for (const std::filesystem::path file : {SORVEX_PROGRAM, SORVEX_SOUNDS})
    std::filesystem::copy_file(file, to / file.filename());
}

// The game starts with Theme1: here that is a copy of the cabinet, a theme of usual size.
void BenchStartUp(Stage& stage) {
  const TempFolder folder;
  CopyProgram(folder.Path());
  std::filesystem::copy(std::filesystem::path(SORVEX_PROGRAM).parent_path() / "Cabinet", folder.Path() / "Theme1");
  const auto timeOf = [&stage](const std::string& program, const std::string& title) {
    const auto began = Clock::now();
    const Process process = stage.Start(program);
    stage.AwaitWindow(title);
    return Milliseconds(Clock::now() - began);
  };
  std::vector<double> game;
  std::vector<double> bare;
  for (int i = 0; i < 15; ++i) {
    game.push_back(timeOf(folder.Path() / "Sorvex", "Sorvex - Theme1"));
    bare.push_back(timeOf(SORVEX_BARE_PROGRAM, "Bare"));
  }
  Print("start to painted window", Median(game), "ms", 1.3 * Median(bare));
}

constexpr int kFieldInset = 8 + 2;  // from the client area's corner to the field's drawing area: position and frame

// The median time from sending a move until the moved item is on the screen; item 0 is dragged above its container.
double TimeDrag(Player& player, const SceneDesign& design, const Rectangle& field) {
  const int restX = field.left + 5 + design.item.width / 2;
  const int restY = field.top + design.container.height - 5 - design.item.height / 2;
  const int openX = field.left + design.container.width + 10 + design.item.width / 2;
  const int openY = field.top + 10 + design.item.height / 2;
  // After a press the server coalesces moves until the window manager has handled it.
  const auto settle = [] { std::this_thread::sleep_for(std::chrono::milliseconds(200)); };
  player.Move(restX, restY);
  settle();
  player.Press();
  settle();
  player.Move(restX, restY - 1);  // a drag begins on the item's opaque pixels
  settle();
  player.Move(openX, openY);
  settle();

  std::vector<double> times;
  const Rectangle part = Rectangle::At(openX - 4, openY - 4, {8, 8});
  for (int i = 0; i < 200; ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(7));
    const Bitmap before = player.Look(part);
    const auto sent = Clock::now();
    player.Move(openX, openY + (i % 2 == 0 ? 3 : 0));
    while (player.Look(part) == before)
      if (Clock::now() - sent > kPatience) throw std::runtime_error("the item does not move");
    times.push_back(Milliseconds(Clock::now() - sent));
  }
  player.Release();
  return Median(times);
}

std::size_t PixelsOf(const SceneDesign& design) {
  const auto area = [](Size size) { return static_cast<std::size_t>(size.width * size.height); };
  const auto items = static_cast<std::size_t>(design.items);
  return area(design.field) + 2 * area(design.target) + 2 * items * (area(design.item) + area(design.container));
}

void BenchGame(Stage& stage, const SceneDesign& design, std::size_t bareMemory) {
  const TempFolder folder;
  WriteTheme(UnseenScene(design), folder.Path() / "Theme1");
  CopyProgram(folder.Path());
  const Process program = stage.Start(folder.Path() / "Sorvex");
  const Rectangle client = stage.AwaitWindow("Sorvex - Theme1");
  Await([&] { return stage.player.HasFocus(stage.player.Find("Sorvex - Theme1")); },
        [] { return std::string("the game takes no keys"); });
  const Rectangle field = Rectangle::At(client.left + kFieldInset, client.top + kFieldInset, design.field);
  const Rectangle corner = Rectangle::At(field.left, field.bottom - 8, {8, 8});
  const Bitmap before = stage.player.Look(corner);
  stage.player.Tap("s", "Alt_L");
  Await([&] { return stage.player.Look(corner) != before; }, [] { return std::string("no game begins"); });
  Print(std::string("movement to screen/") + design.name, TimeDrag(stage.player, design, field), "ms", 5);
  constexpr double kMebibyte = 1 << 20;
  const std::size_t most = bareMemory + 3 * sizeof(Pixel) * PixelsOf(design) + (std::size_t{40} << 20);
  Print(std::string("resident memory/") + design.name, static_cast<double>(program.ResidentMemory()) / kMebibyte, "MiB",
        static_cast<double>(most) / kMebibyte);
}

void BenchPrograms() {
  Stage stage;
  BenchStartUp(stage);
  std::size_t bareMemory = 0;
  {
    const Process bare = stage.Start(SORVEX_BARE_PROGRAM);
    stage.AwaitWindow("Bare");
    bareMemory = bare.ResidentMemory();
  }
  for (const SceneDesign& design : kScenes) BenchGame(stage, design, bareMemory);
}

}  // namespace
}  // namespace sorvex::bench

int main(int argc, char** argv) {
  try {
    sorvex::bench::BenchFrames(argc, argv);
    sorvex::bench::BenchPrograms();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
