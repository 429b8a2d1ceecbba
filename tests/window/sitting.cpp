// SPDX-License-Identifier: MIT
// Setting up screens, and what a player of this game does again and again.
#include "window/sitting.h"

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <utility>

namespace sorvex {
namespace {

namespace fs = std::filesystem;

std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) joined += " [" + text + "]";
  return joined;
}

std::string Difference(const Bitmap& seen, const Bitmap& expected) {
  int count = 0;
  std::string first;
  for (int y = 0; y < expected.Height(); ++y) {
    for (int x = 0; x < expected.Width(); ++x) {
      if (seen.At(x, y) == expected.At(x, y)) continue;
      if (count++ > 0) continue;
      char text[80];
      std::snprintf(text, sizeof text, "the first at %d, %d shows %06X instead of %06X", x, y, seen.At(x, y) & 0xFFFFFF,
                    expected.At(x, y) & 0xFFFFFF);
      first = text;
    }
  }
  return std::to_string(count) + " pixels differ, " + first;
}

// The first device pixel whose centre lies in this pixel of the window.
int DevicePixel(int pixel, double scale) { return static_cast<int>(std::ceil(pixel * scale - 0.5)); }

}  // namespace

System TheSystem() {
  const char* name = std::getenv("SORVEX_SYSTEM");
  return name != nullptr && std::string(name) == "Windows" ? System::Windows : System::Linux;
}

Sitting::Sitting(TestTheme itsTheme, double itsScale)
    : theme(std::move(itsTheme)), scale(itsScale), painter_(ThemeFile(""), theme.targetX, theme.targetY) {
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
  screen.emplace(
      std::vector<std::string>{"Xvfb", "-displayfd", "3", "-screen", "0", "1280x1000x24", "-nolisten", "tcp"},
      environment);
  environment["DISPLAY"] = ":" + screen->Announcement();
  // No bindings: to wait for what a press means to the window manager, the screen would join movements that follow it.
  const fs::path settings = home / "openbox.xml";
  WriteFile(settings, "<openbox_config xmlns=\"http://openbox.org/3.4/rc\"><keyboard/><mouse/></openbox_config>");
  windowManager.emplace(std::vector<std::string>{"openbox", "--config-file", settings}, environment);
  player.emplace(environment["DISPLAY"]);
  player->Move(1279, 999);
}

void Sitting::SetUpWine() {
  fs::copy_file(SORVEX_WINDOWS_PROGRAM, folder.Path() / "program/Sorvex.exe");
  const fs::path original = SORVEX_WINE_PREFIX;
  fs::create_directory(WinePrefix());
  for (const char* file : {"system.reg", "user.reg", "userdef.reg", ".update-timestamp"})
    fs::copy_file(original / file, WinePrefix() / file);
  for (const char* shared : {"drive_c", "dosdevices"})
    fs::create_directory_symlink(original / shared, WinePrefix() / shared);
  AddToRegistry("[Software\\\\Wine\\\\Drivers]\n\"Graphics\"=\"x11\"\n");
}

void Sitting::AddToRegistry(const std::string& lines) {
  std::ofstream(WinePrefix() / "user.reg", std::ios::app) << "\n" << lines;
}

void Sitting::Start() {
  program.reset();
  const std::string path = (folder.Path() / "program/Sorvex").string();
  program.emplace(system == System::Linux ? std::vector{path} : std::vector<std::string>{"wine", path + ".exe"},
                  environment);
}

void Sitting::Open() {
  Start();
  window = Await("Sorvex - Theme1");
}

Player::WindowId Sitting::Await(const std::string& title) {
  Player::WindowId found = 0;
  sorvex::Await(
      [&] {
        found = player->Find(title);
        return found != 0 && player->HasFocus(found);
      },
      [&] {
        return "no window [" + title + "] that takes keys, but" + Joined(player->Titles()) + ", the program " +
               (program->Runs() ? "runs" : "has ended");
      });
  return found;
}

void Sitting::Answer(const std::string& title, const std::string& key) {
  const Player::WindowId box = Await(title);
  player->Tap(key);
  sorvex::Await([&] { return player->Find(title) != box; }, [&] { return "[" + title + "] stays open"; });
}

Rectangle Sitting::OnScreen(const Rectangle& part) const {
  const Rectangle client = player->ClientArea(window);
  return Rectangle{DevicePixel(part.left, scale), DevicePixel(part.top, scale), DevicePixel(part.right, scale),
                   DevicePixel(part.bottom, scale)}
      .Moved(client.left, client.top);
}

void Sitting::MoveTo(int x, int y) {
  const Rectangle place = OnScreen({x, y, x, y});
  player->Move(place.left, place.top);
}

void Sitting::Click(int x, int y, int times) {
  MoveTo(x, y);
  for (int i = 0; i < times; ++i) {
    player->Press();
    player->Release();
  }
}

Bitmap Sitting::Look(const Rectangle& part) const { return player->Look(OnScreen(part)); }

// Below the button row there is nothing but the panel.
bool Sitting::PanelShows() const { return Look({100, 291, 101, 292}).At(0, 0) != kWindowGray; }

void Sitting::AwaitPanel(bool shown) {
  sorvex::Await([&] { return PanelShows() == shown; },
                [&] { return std::string(shown ? "the panel does not show" : "the panel does not hide"); });
}

void Sitting::AwaitItem(int i, int x, int y, bool there) {
  const Pixel color = kBlack | 0xC00000U | static_cast<Pixel>(i * 8);
  sorvex::Await(
      [&] {
        return (Look(Rectangle::At(kFieldAt + x, kFieldAt + y, {1, 1})).At(0, 0) == color) == there;
      },
      [&] { return "item " + std::to_string(i) + (there ? " does not follow" : " does not leave"); });
}

// Seen to follow before the next movement: some screens join movements that wait behind one another.
void Sitting::Grab(int x, int y) {
  Hover(x, y);
  player->Press();
  Hover(x, y + 1);
  for (int i = 0; i < static_cast<int>(theme.items.size()); ++i) {
    const Placed rest = Rest(i);
    const Size size = theme.items[static_cast<std::size_t>(i)].size;
    if (Rectangle::At(rest.x, rest.y, size).Contains(x, y)) AwaitItem(i, x, rest.y + size.height, true);
  }
}

// A release before the frame that shows the item on the target would send it back.
void Sitting::PutIn(int i) {
  const Placed rest = Rest(i);
  const int x = rest.x + 7;
  const int y = 150;
  Grab(x, rest.y + 6);
  Hover(x, y);
  AwaitItem(i, x, y, true);
  Hover(theme.targetX + theme.target.width / 2, theme.targetY + theme.target.height / 2);
  AwaitItem(i, x, y, false);
  player->Release();
}

Placed Sitting::Rest(int i) const {
  const TestItem& item = theme.items[static_cast<std::size_t>(i)];
  return {i, item.RestX(), item.RestY()};
}

std::optional<Placed> Sitting::Cup(int i) const {
  const TestItem& item = theme.items[static_cast<std::size_t>(i)];
  return Placed{i, item.contX, item.contY};
}

Bitmap Sitting::Scaled(const Bitmap& field) const {
  const int first = DevicePixel(kFieldAt, scale);
  Bitmap scaled(
      {DevicePixel(kFieldAt + field.Width(), scale) - first, DevicePixel(kFieldAt + field.Height(), scale) - first});
  const auto source = [&](int pixel) { return static_cast<int>(std::floor((first + pixel + 0.5) / scale)) - kFieldAt; };
  for (int y = 0; y < scaled.Height(); ++y)
    for (int x = 0; x < scaled.Width(); ++x) scaled.Row(y)[x] = field.At(source(x), source(y));
  return scaled;
}

void Sitting::AwaitField(const std::string& when, const std::vector<Placed>& items, std::optional<Placed> cup) {
  AwaitPixels(when, items, cup, [] {});
}

void Sitting::AwaitHover(const std::string& when, const std::vector<Placed>& items, int i) {
  const Placed cup = *Cup(i);
  AwaitPixels(when, items, cup, [&, step = 0]() mutable { Hover(cup.x + 10 + step++ % 2, cup.y + 10); });
}

void Sitting::AwaitPixels(const std::string& when, const std::vector<Placed>& items, std::optional<Placed> cup,
                          const std::function<void()>& beforeEachLook) {
  const Bitmap expected = Scaled(painter_.Paint(items, cup));
  Bitmap seen;
  sorvex::Await(
      [&] {
        beforeEachLook();
        seen = Look(Rectangle::At(kFieldAt, kFieldAt, theme.field));
        return seen == expected;
      },
      [&] { return "the field " + when + ": " + Difference(seen, expected); });
}

void Sitting::StartGame() {
  Click(100, 270);
  std::vector<Placed> items;
  for (int i = 0; i < static_cast<int>(theme.items.size()); ++i) items.push_back(Rest(i));
  AwaitField("at the start", items, Cup(0));
}

}  // namespace sorvex
