// SPDX-License-Identifier: MIT
// One player before a screen of its own, with a copy of the program and a theme beside it: the program for Linux, or
// the one for Windows under Wine.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "support/field_painter.h"
#include "support/temp_folder.h"
#include "support/theme_folder.h"
#include "support/wave_file.h"
#include "window/player.h"
#include "window/process.h"

namespace sorvex {

namespace fs = std::filesystem;

inline constexpr Pixel kWindowGray = 0xFFC0C0C0;

enum class System { Linux, Windows };

/// What the stories are played on, unless one says otherwise: Windows when SORVEX_SYSTEM says so.
inline System TheSystem() {
  const char* name = std::getenv("SORVEX_SYSTEM");
  return name != nullptr && std::string(name) == "Windows" ? System::Windows : System::Linux;
}

struct Screen {
  std::vector<std::string> options = {};
  bool managed = true;  // by a window manager
};

class Sitting {
 public:
  /// Sets up the screen and writes the theme; the program is not started.
  explicit Sitting(TestTheme itsTheme = CupTheme(3), double itsScale = 1, const Screen& itsScreen = {})
      : theme(std::move(itsTheme)), scale(itsScale) {
    WriteTheme(folder.Path() / "program", theme);
    fs::copy_file(SORVEX_PROGRAM, folder.Path() / "program/Sorvex");
    fs::copy_file(SORVEX_SOUNDS, folder.Path() / "program" / fs::path(SORVEX_SOUNDS).filename());
    if (system == System::Windows) SetUpWine();
    const fs::path home = folder.Path() / "home";
    fs::create_directories(home / "runtime");
    fs::permissions(home / "runtime", fs::perms::owner_all);
    environment = {{"HOME", home},
                   {"XDG_DATA_HOME", home / "data"},
                   {"XDG_RUNTIME_DIR", home / "runtime"},
                   {"TMPDIR", home},
                   {"LANG", "C.UTF-8"},
                   {"QT_SCALE_FACTOR", std::to_string(scale)},
                   // Nothing of the desktop that the tests run on is to be found.
                   {"DBUS_SESSION_BUS_ADDRESS", "unix:path=" + (home / "runtime/bus").string()},
                   {"PULSE_SERVER", "unix:" + (home / "runtime/sound").string()},
                   {"PULSE_CLIENTCONFIG", home / "sound.conf"},
                   {"WINEPREFIX", WinePrefix()},
                   {"WINEDEBUG", "-all"},
                   {"WINEDLLOVERRIDES", "mscoree,mshtml="}};
    WriteFile(home / "sound.conf", "enable-shm = no\n");  // not every sandbox lets processes share memory
    std::vector<std::string> server{"Xvfb", "-displayfd", "3", "-screen", "0", "1280x1000x24", "-nolisten", "tcp"};
    server.insert(server.end(), itsScreen.options.begin(), itsScreen.options.end());
    screen.emplace(server, environment);
    environment["DISPLAY"] = ":" + screen->Announcement();
    if (itsScreen.managed) Manage(home / "openbox.xml");
    player.emplace(environment["DISPLAY"], itsScreen.managed);
    player->Move(1279, 999);
  }

  /// Gives the theme a sound of that many samples for every moment.
  void WriteSounds(std::size_t samples = 16000) const {
    for (const char* moment : {"Pickup", "LetGo", "HitTube", "PutInCont"})
      WriteFile(ThemeFile(moment + std::string(".wav")), WaveFile{}.With(std::string(samples, '\1')));
  }

  /// Starts the program, again if it ran before.
  void Start() {
    program.reset();
    const std::string path = (folder.Path() / "program/Sorvex").string();
    program.emplace(system == System::Linux ? std::vector{path} : std::vector<std::string>{"wine", path + ".exe"},
                    environment);
  }
  /// Adds lines to the settings of the user on Windows; has its effect before the first start.
  void AddToRegistry(const std::string& lines) {
    std::ofstream(WinePrefix() / "user.reg", std::ios::app) << "\n" << lines;
  }
  /// The same, and waits for the main window and for its keyboard focus.
  void Open() {
    Start();
    window = Await("Sorvex - Theme1");
  }
  /// Waits for a window with that title that takes keys.
  Player::WindowId Await(const std::string& title) {
    Player::WindowId found = 0;
    sorvex::Await(
        [&] {
          found = player->Find(title);
          return found != 0 && player->HasFocus(found);
        },
        [&] {
          return "no window [" + title + "] that takes keys, but" + testing::PrintToString(player->Titles()) +
                 ", the program " + (program->Runs() ? "runs" : "has ended");
        });
    return found;
  }
  /// Waits for the box and gives Enter or Escape to it.
  void Answer(const std::string& title, const std::string& key = "Return") {
    const Player::WindowId box = Await(title);
    player->Tap(key);
    sorvex::Await([&] { return player->Find(title) != box; }, [&] { return "[" + title + "] stays open"; });
  }
  std::filesystem::path ThemeFile(const std::string& name) const {
    return folder.Path() / "program" / theme.name / name;
  }

  // Places are pixels of the main window's client area.
  void MoveTo(int x, int y) {
    const Rectangle place = OnScreen({x, y, x, y});
    player->Move(place.left, place.top);
  }
  void Click(int x, int y, int times = 1) {
    MoveTo(x, y);
    for (int i = 0; i < times; ++i) {
      player->Press();
      player->Release();
    }
  }
  Rectangle OnScreen(const Rectangle& part) const {
    const Rectangle client = window == 0 ? clientArea : player->ClientArea(window);
    return Rectangle{DevicePixel(part.left, scale), DevicePixel(part.top, scale), DevicePixel(part.right, scale),
                     DevicePixel(part.bottom, scale)}
        .Moved(client.left, client.top);
  }
  Bitmap Look(const Rectangle& part) const { return player->Look(OnScreen(part)); }
  /// Below the button row there is nothing but the panel.
  bool PanelShows() const { return Look({100, 291, 101, 292}).At(0, 0) != kWindowGray; }
  /// Waits until the panel is shown or hidden.
  void AwaitPanel(bool shown) {
    sorvex::Await([&] { return PanelShows() == shown; },
                  [&] { return std::string(shown ? "the panel does not show" : "the panel does not hide"); });
  }

  // Places are pixels of the play field.
  void Hover(int x, int y) { MoveTo(kFieldAt + x, kFieldAt + y); }
  /// Takes the item that is at rest there and waits until it follows: some screens join movements that wait behind one
  /// another.
  void Grab(int x, int y) {
    Hover(x, y);
    player->Press();
    Hover(x, y + 1);
    for (int i = 0; i < static_cast<int>(theme.items.size()); ++i) {
      const Placed rest = Rest(i);
      const Size size = theme.items[static_cast<std::size_t>(i)].size;
      if (Rectangle::At(rest.x, rest.y, size).Contains(x, y)) AwaitItem(i, rest.x + 3, rest.y + size.height, true);
    }
  }
  /// Takes item `i` out of its cup and to the target, and lets go once it is in: before, that would send it back.
  void PutIn(int i) {
    const Placed rest = Rest(i);
    const int x = rest.x + 7;
    const int y = 150;
    Grab(x, rest.y + 6);
    Hover(x, y);
    AwaitItem(i, rest.x + 3, y, true);  // not under the pointer, which some screens draw
    Hover(theme.targetX + theme.target.width / 2, theme.targetY + theme.target.height / 2);
    AwaitItem(i, rest.x + 3, y, false);
    player->Release();
  }
  Placed Rest(int i) const {
    const TestItem& item = theme.items[static_cast<std::size_t>(i)];
    return {i, item.RestX(), item.RestY()};
  }
  std::optional<Placed> Cup(int i) const {
    const TestItem& item = theme.items[static_cast<std::size_t>(i)];
    return Placed{i, item.contX, item.contY};
  }
  /// Waits until every pixel of the field is as the raster operations say.
  void AwaitField(const std::string& when, const std::vector<Placed>& items, std::optional<Placed> cup) {
    AwaitPixels(when, items, cup, [] {});
  }
  /// Clicks Start and waits for the first frame.
  void StartGame() {
    Click(100, 270);
    std::vector<Placed> items;
    for (int i = 0; i < static_cast<int>(theme.items.size()); ++i) items.push_back(Rest(i));
    AwaitField("at the start", items, Cup(0));
  }
  /// Moves to and fro in cup `i` until it is the current one, and with it the field as said: all that was done before
  /// has had its effect then, and no lock-out is left.
  void AwaitHover(const std::string& when, const std::vector<Placed>& items, int i) {
    const Placed cup = *Cup(i);
    AwaitPixels(when, items, cup, [&, step = 0]() mutable { Hover(cup.x + 10 + step++ % 2, cup.y + 10); });
  }

  TempFolder folder;
  TestTheme theme;
  double scale;
  System system = TheSystem();
  Environment environment;
  std::optional<Process> screen;
  std::optional<Process> windowManager;
  std::optional<Player> player;
  std::optional<Process> program;
  Player::WindowId window = 0;
  Rectangle clientArea;  // of a main window that is none of the screen's own

 private:
  void Manage(const fs::path& settings) {
    // No bindings: to wait for what a press means to the window manager, the screen would join movements that follow
    // it.
    WriteFile(settings, "<openbox_config xmlns=\"http://openbox.org/3.4/rc\"><keyboard/><mouse/></openbox_config>");
    windowManager.emplace(std::vector<std::string>{"openbox", "--config-file", settings}, environment);
  }
  static std::string Difference(const Bitmap& seen, const Bitmap& expected) {
    for (int y = 0; y < expected.Height(); ++y)
      for (int x = 0; x < expected.Width(); ++x)
        if (seen.At(x, y) != expected.At(x, y))
          return (std::ostringstream() << std::hex << seen.At(x, y) << " instead of " << expected.At(x, y) << " at "
                                       << std::dec << x << ", " << y)
              .str();
    return "as it must be";
  }

  // The first device pixel whose center lies in this pixel of the window.
  static int DevicePixel(int pixel, double scale) { return static_cast<int>(std::ceil(pixel * scale - 0.5)); }

  static constexpr int kFieldAt = 10;  // the play field's frame stands at 8 and is 2 pixels wide

  std::filesystem::path WinePrefix() const { return folder.Path() / "wine"; }
  /// A Wine prefix of this sitting's own, which shares what is not written with the one that all are made from.
  void SetUpWine() {
    fs::copy_file(SORVEX_WINDOWS_PROGRAM, folder.Path() / "program/Sorvex.exe");
    const fs::path original = SORVEX_WINE_PREFIX;
    fs::create_directory(WinePrefix());
    for (const char* file : {"system.reg", "user.reg", "userdef.reg", ".update-timestamp"})
      fs::copy_file(original / file, WinePrefix() / file);
    for (const char* shared : {"drive_c", "dosdevices"})
      fs::create_directory_symlink(original / shared, WinePrefix() / shared);
    AddToRegistry("[Software\\\\Wine\\\\Drivers]\n\"Graphics\"=\"x11\"\n");
  }
  /// Waits until item `i` shows at that pixel of the field, or does not.
  void AwaitItem(int i, int x, int y, bool there) {
    const Pixel color = kBlack | 0xC00000U | static_cast<Pixel>(i * 8);
    sorvex::Await(
        [&] {
          return (Look(Rectangle::At(kFieldAt + x, kFieldAt + y, {1, 1})).At(0, 0) == color) == there;
        },
        [&] { return "item " + std::to_string(i) + (there ? " does not follow" : " does not leave"); });
  }
  void AwaitPixels(const std::string& when, const std::vector<Placed>& items, std::optional<Placed> cup,
                   const std::function<void()>& beforeEachLook) {
    const Bitmap expected = Scaled(PaintField(ThemeFile(""), theme, items, cup));
    Bitmap seen;
    sorvex::Await(
        [&] {
          beforeEachLook();
          seen = Look(Rectangle::At(kFieldAt, kFieldAt, theme.field));
          return seen == expected;
        },
        [&] { return "the field " + when + ": " + Difference(seen, expected); });
  }
  /// The field as it must look on the screen: each device pixel is the field's pixel under its center.
  Bitmap Scaled(const Bitmap& field) const {
    const int first = DevicePixel(kFieldAt, scale);
    Bitmap scaled(
        {DevicePixel(kFieldAt + field.Width(), scale) - first, DevicePixel(kFieldAt + field.Height(), scale) - first});
    const auto source = [&](int pixel) {
      return static_cast<int>(std::floor((first + pixel + 0.5) / scale)) - kFieldAt;
    };
    for (int y = 0; y < scaled.Height(); ++y)
      for (int x = 0; x < scaled.Width(); ++x) scaled.Row(y)[x] = field.At(source(x), source(y));
    return scaled;
  }
};

}  // namespace sorvex
