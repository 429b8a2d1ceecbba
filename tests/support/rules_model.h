// SPDX-License-Identifier: MIT
// The game's rules once more, put as plainly as they can be: whole frames by raster operations, nothing remembered,
// nothing left out. What the game's own code is held against.
#pragma once

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
  int targetX, targetY;
  Cutout target;
  Bitmap background;               ///< as large as the field
  std::vector<RulesItem> items{};  ///< at least one
};

/// Something the player does. `value` is the button or the milliseconds waited.
struct RulesEvent {
  enum class Kind { Move, Press, Release, Lose, Clock, Wait, Start } kind;
  int value = 0;
  float x = 0;
  float y = 0;
};

/// A program that was just started; its state is there to be read.
class RulesModel {
 public:
  explicit RulesModel(RulesTheme theme) : theme_(std::move(theme)) {}

  /// What lies between the input of two deliveries: what follows from the one, then the loading of a theme or a frame
  /// with its two tests, and the timer, which the other begins with.
  void Frame();
  /// One event of a delivery's input.
  void Handle(const RulesEvent& event);

  enum class Phase { Idle, Loading, Running } phase = Phase::Idle;
  std::vector<RulesItem> items;
  int curItem = 0;
  int curCont = 0;
  bool mouseHeld = false;
  bool dragging = false;
  bool lockedOut = false;
  bool clockShown = false;
  std::string clock = "00.00";
  Bitmap field;  ///< empty before the first frame
  std::vector<std::string>
      log;  ///< names of sounds and of frames unlike the one before, texts of boxes; may be emptied

 private:
  RulesItem& Current() { return items[static_cast<std::size_t>(curItem)]; }
  void MouseDown(int button, float x, float y);
  void MouseMove(float x, float y);
  void MouseUp();
  void FollowUp();
  void ShowFrame(bool withContainer);
  void TestContact();
  void TestPlacement();
  void ReturnItem();
  void StepTowards(int targetX, int targetY);
  void RunTimer();

  RulesTheme theme_;
  Bitmap work_{{61, 69}};  // of the contact test: as large as the item tested before
  int grabX_ = 0;
  int grabY_ = 0;
  int buttons_ = 0;
  bool startWanted_ = false;
  bool timerRuns_ = true;
  int timerStarted_ = 0;
  int now_ = 0;
  int start_ = 0;
};

/// How the log names a frame.
std::string NameOfFrame(const Bitmap& frame);

/// The contact test as raster operations have it: composes on `work`, which then takes the item mask's size, and looks
/// for a white pixel. The item stands (dx, dy) from its container.
bool ContactByRasterOperations(int dx, int dy, const Bitmap& itemMask, const Bitmap& containerMask, Bitmap& work);

}  // namespace sorvex
