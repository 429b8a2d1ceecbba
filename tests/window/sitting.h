// SPDX-License-Identifier: MIT
// One player before a screen of its own, with a copy of the program and a theme beside it: the program for Linux, or
// the one for Windows under Wine.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "support/field_painter.h"
#include "support/temp_folder.h"
#include "support/theme_folder.h"
#include "window/player.h"
#include "window/process.h"

namespace sorvex {

inline constexpr Pixel kWindowGray = 0xFFC0C0C0;

enum class System { Linux, Windows };

/// What the stories are played on, unless one says otherwise: Windows when SORVEX_SYSTEM says so.
System TheSystem();

class Sitting {
 public:
  /// Sets up the screen and writes the theme; the program is not started.
  explicit Sitting(TestTheme theme = CupTheme(3), double scale = 1);

  /// Starts the program, again if it ran before.
  void Start();
  /// Adds lines to the settings of the user on Windows; has its effect before the first start.
  void AddToRegistry(const std::string& lines);
  /// The same, and waits for the main window and for its keyboard focus.
  void Open();
  /// Waits for a window with that title that takes keys.
  Player::WindowId Await(const std::string& title);
  /// Waits for the box and gives Enter or Escape to it.
  void Answer(const std::string& title, const std::string& key = "Return");
  std::filesystem::path ThemeFile(const std::string& name) const { return folder.Path() / "program/Theme1" / name; }

  // Places are pixels of the main window's client area.
  void MoveTo(int x, int y);
  void Click(int x, int y, int times = 1);
  Rectangle OnScreen(const Rectangle& part) const;
  Bitmap Look(const Rectangle& part) const;
  bool PanelShows() const;
  /// Waits until the panel is shown or hidden.
  void AwaitPanel(bool shown);

  // Places are pixels of the play field.
  void Hover(int x, int y) { MoveTo(kFieldAt + x, kFieldAt + y); }
  /// Takes the item that is at rest there and waits until it follows.
  void Grab(int x, int y);
  /// Takes item `i` out of its cup and to the target, and lets go.
  void PutIn(int i);
  Placed Rest(int i) const;
  std::optional<Placed> Cup(int i) const;
  /// Waits until every pixel of the field is as the raster operations say.
  void AwaitField(const std::string& when, const std::vector<Placed>& items, std::optional<Placed> cup);
  /// Clicks Start and waits for the first frame.
  void StartGame();
  /// Moves to and fro in cup `i` until it is the current one, and with it the field as said: all that was done before
  /// has had its effect then, and no lock-out is left.
  void AwaitHover(const std::string& when, const std::vector<Placed>& items, int i);

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

 private:
  static constexpr int kFieldAt = 10;  // the play field's frame stands at 8 and is 2 pixels wide

  std::filesystem::path WinePrefix() const { return folder.Path() / "wine"; }
  /// A Wine prefix of this sitting's own, which shares what is not written with the one that all are made from.
  void SetUpWine();
  /// Waits until item `i` shows at that pixel of the field, or does not.
  void AwaitItem(int i, int x, int y, bool there);
  void AwaitPixels(const std::string& when, const std::vector<Placed>& items, std::optional<Placed> cup,
                   const std::function<void()>& beforeEachLook);
  /// The field as it must look on the screen: each device pixel is the field's pixel under its centre.
  Bitmap Scaled(const Bitmap& field) const;

  FieldPainter painter_;
};

}  // namespace sorvex
