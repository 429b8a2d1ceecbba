// SPDX-License-Identifier: MIT
// The game's rules once more, put as plainly as they can be: whole frames by raster operations, nothing remembered,
// nothing left out. What the game's own code is held against.
#pragma once

#include <span>
#include <string>
#include <utility>
#include <vector>

#include "base/bitmap.h"

namespace sorvex {

/// A picture and its mask.
struct Cutout {
  Bitmap picture;
  Bitmap mask;
};

struct RulesItem {
  int x, y;
  int contX, contY;
  Cutout look;
  Cutout container;
  bool itemInPlay = true;
  bool contInPlay = true;
};

struct RulesTheme {
  std::vector<RulesItem> items;  ///< at least one
  int targetX, targetY;
  Cutout target;
  Bitmap background;  ///< as large as the field
};

/// Something the player does.
struct RulesEvent {
  enum class Kind { Move, Press, Release, Lose, Clock, Wait, Start } kind;
  int value = 0;  ///< the button, the milliseconds
  float x = 0;
  float y = 0;
};

struct RulesState {
  enum class Phase { Idle, Loading, Running } phase = Phase::Idle;
  std::vector<RulesItem> items;
  int curItem = 0;
  int curCont = 0;
  bool mouseHeld = false;
  bool dragging = false;
  bool lockedOut = false;
  bool clockShown = false;
  std::string clock = "00.00";
  Bitmap field;                    ///< empty before the first frame
  std::vector<std::string> log;    ///< sounds by their names, and every frame that differs from the one before
  std::vector<std::string> boxes;  ///< the texts of message boxes
};

class RulesModel : private RulesState {
 public:
  /// A program that was just started and waits for its first Start.
  explicit RulesModel(RulesTheme theme) : theme_(std::move(theme)) {}

  /// What lies between the input of one event delivery and that of the next: what follows from the one, the loading of
  /// a theme or a frame with its two tests, and the timer, which comes first in the other.
  void Frame();
  /// The input of one event delivery.
  void Deliver(std::span<const RulesEvent> events);

  const RulesState& Now() const { return *this; }
  /// How the log names a frame.
  static std::string NameOf(const Bitmap& frame);

 private:
  RulesItem& Current() { return items[static_cast<std::size_t>(curItem)]; }
  void Handle(const RulesEvent& event);
  void MouseDown(int button, float x, float y);
  void MouseMove(float x, float y);
  void MouseUp();
  void EndFrame();
  void ShowFrame(bool withContainer);
  void TestContact();
  void TestPlacement();
  void ReturnItem();
  void StepTowards(int targetX, int targetY);
  void RunTimer();

  RulesTheme theme_;
  Bitmap work_{{61, 69}};  // of the contact test; as large as the item tested before
  int grabX_ = 0;
  int grabY_ = 0;
  int buttons_ = 0;
  bool startWanted_ = false;
  bool timerRuns_ = true;
  int timerStarted_ = 0;
  int now_ = 0;
  int start_ = 0;
};

/// The contact test as raster operations have it: composes on `work`, which then takes the item mask's size, and looks
/// for a white pixel. The item stands (dx, dy) from its container.
bool ContactByRasterOperations(int dx, int dy, const Bitmap& itemMask, const Bitmap& containerMask, Bitmap& work);

}  // namespace sorvex
