// SPDX-License-Identifier: MIT
// The game's rules once more, put as plainly as they can be: whole frames by raster operations, nothing remembered,
// nothing left out. What the game's own code is held against.
#pragma once

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "base/numbers.h"
#include "support/raster.h"

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

/// How the log names a frame.
inline std::string NameOfFrame(const Bitmap& frame) {
  const auto bytes = std::as_bytes(frame.Pixels());
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  return "frame " + std::to_string(std::hash<std::string_view>{}(text));
}

/// A program that was just started; its state is there to be read.
class RulesModel {
 public:
  explicit RulesModel(RulesTheme theme) : theme_(std::move(theme)) {}

  /// What lies between the input of two deliveries: what follows from the one, then the loading of a theme or a frame
  /// with its two tests, and the timer, which the other begins with.

  void Frame() {
    FollowUp();
    if (phase == Phase::Running) {
      ShowFrame(true);
      TestContact();
      TestPlacement();
    }
    RunTimer();
  }
  /// One event of a delivery's input.

  void Handle(const RulesEvent& event) {
    switch (event.kind) {
      case RulesEvent::Kind::Move:
        if (phase == Phase::Running) MouseMove(event.x, event.y);
        return;
      case RulesEvent::Kind::Press:
        buttons_ |= event.value;
        if (phase == Phase::Running) MouseDown(event.value, event.x, event.y);
        return;
      case RulesEvent::Kind::Release:
        if ((buttons_ & event.value) == 0) return;
        buttons_ &= ~event.value;
        return MouseUp();
      case RulesEvent::Kind::Lose:
        if (std::exchange(buttons_, 0) != 0) MouseUp();
        return;
      case RulesEvent::Kind::Clock: clockShown = !clockShown; return;
      case RulesEvent::Kind::Wait: now_ += event.value; return;
      case RulesEvent::Kind::Start: startWanted_ = phase != Phase::Loading;
    }
  }

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
  static constexpr int kLeft = 1;

  static int Rounded(double value) { return static_cast<int>(std::nearbyint(value)); }  // halves to even
  static bool IsInside(float x, float y, int left, int top, const Bitmap& picture) {
    return x > static_cast<float>(left) && x < static_cast<float>(left + picture.Width()) &&
           y > static_cast<float>(top) && y < static_cast<float>(top + picture.Height());
  }

  RulesItem& Current() { return items[static_cast<std::size_t>(curItem)]; }

  void MouseDown(int button, float x, float y) {
    if (button != kLeft) return;
    mouseHeld = true;
    const auto hit = std::ranges::find_if(
        items, [&](const RulesItem& item) { return IsInside(x, y, item.x, item.y, item.look.picture); });
    if (hit != items.end()) {
      log.push_back("Pickup");
      curItem = static_cast<int>(hit - items.begin());
    }
    grabX_ = Rounded(x - static_cast<float>(Current().x));
    grabY_ = Rounded(y - static_cast<float>(Current().y));
  }

  void MouseMove(float x, float y) {
    if (lockedOut) return;
    RulesItem& item = Current();
    const int column = Rounded(x) - item.x;
    const int row = Rounded(y) - item.y;
    const bool onItem = item.look.mask.Bounds().Contains(column, row) && item.look.mask.At(column, row) == kBlack;
    if (mouseHeld && onItem) dragging = true;
    if (dragging) {
      item.x = Rounded(x - static_cast<float>(grabX_));
      item.y = Rounded(y - static_cast<float>(grabY_));
    }
    if (mouseHeld) return;
    const auto hovered = std::ranges::find_if(items, [&](const RulesItem& each) {
      return each.contInPlay && IsInside(x, y, each.contX, each.contY, each.container.picture);
    });
    if (hovered != items.end()) curItem = curCont = static_cast<int>(hovered - items.begin());
  }

  void MouseUp() {
    if (dragging) {
      log.push_back("LetGo");
      ReturnItem();
    }
    mouseHeld = dragging = false;
  }

  void FollowUp() {
    if (std::exchange(startWanted_, false)) {
      phase = Phase::Loading;
      items = theme_.items;
      curItem = curCont = 0;
      lockedOut = false;
      clock = "00.00";
    } else if (phase == Phase::Loading) {
      phase = Phase::Running;
      start_ = now_;
    } else if (phase == Phase::Running) {
      clock = NumberText((now_ - start_ + 5) / 10 / 100.0);
      if (std::ranges::any_of(items, &RulesItem::itemInPlay)) return;
      log.push_back("Game Over\r\nYou took: " + clock + " seconds");
      RunTimer();  // the box is modal
      phase = Phase::Idle;
    }
  }

  void ShowFrame(bool withContainer) {
    Bitmap frame = theme_.background;
    const auto draw = [&](int x, int y, const Cutout& cutout, int border) {
      DrawInFull(frame, x, y, Outer(cutout.picture, border), cutout.picture, cutout.mask);
    };
    draw(theme_.targetX, theme_.targetY, theme_.target, kFlat);
    for (const RulesItem& item : items)
      if (item.itemInPlay) draw(item.x, item.y, item.look, kSunken);
    const RulesItem& shown = items[static_cast<std::size_t>(curCont)];
    if (withContainer && shown.contInPlay) draw(shown.contX, shown.contY, shown.container, kSunken);
    if (frame == field) return;
    field = std::move(frame);
    log.push_back(NameOfFrame(field));
  }

  void TestContact() {
    const RulesItem& item = Current();
    if (!ContactByRasterOperations(item.x - item.contX, item.y - item.contY, item.look.mask, item.container.mask,
                                   work_))
      return;
    mouseHeld = dragging = false;
    ReturnItem();
    log.push_back("HitTube");
  }

  void TestPlacement() {
    RulesItem& item = Current();
    const double x = item.x + item.look.mask.Width() / 2.0;
    const double y = item.y + item.look.mask.Height() / 2.0;
    const Bitmap& target = theme_.target.mask;
    if (x <= theme_.targetX || x >= theme_.targetX + target.Width()) return;
    if (y <= theme_.targetY || y >= theme_.targetY + target.Height()) return;
    mouseHeld = dragging = false;
    if (item.itemInPlay) log.push_back("PutInCont");
    item.itemInPlay = false;
    items[static_cast<std::size_t>(curCont)].contInPlay = false;
  }

  void ReturnItem() {
    RulesItem& item = Current();
    lockedOut = timerRuns_ = true;
    timerStarted_ = now_;
    if (!item.itemInPlay) return;
    const int restX = item.contX + 5;
    const int restY = item.contY + item.container.picture.Height() - 5 - item.look.picture.Height();
    for (;;) {
      const std::pair from(item.x, item.y);
      StepTowards(restX, restY);
      if (std::abs(item.x - restX) <= 3 && std::abs(item.y - restY) <= 3) break;
      if (from == std::pair(item.x, item.y)) break;  // a rest place outside the field is never reached
      ShowFrame(false);
    }
    item.x = restX;
    item.y = restY;
  }

  void StepTowards(int targetX, int targetY) {
    RulesItem& item = Current();
    const int x = std::clamp(targetX, 0, theme_.background.Width());
    const int y = std::clamp(targetY, 0, theme_.background.Height());
    const double dx = x - item.x;
    const double dy = y - item.y;
    const double distance = std::sqrt(dx * dx + dy * dy);
    item.x = distance <= 2 ? x : Rounded(item.x + dx * 2 / distance);
    item.y = distance <= 2 ? y : Rounded(item.y + dy * 2 / distance);
  }

  void RunTimer() {
    if (!timerRuns_ || now_ - timerStarted_ < 500) return;
    lockedOut = timerRuns_ = false;
  }

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

}  // namespace sorvex
