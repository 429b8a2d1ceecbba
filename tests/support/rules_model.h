// SPDX-License-Identifier: MIT
// The game's rules once more, put as plainly as they can be: whole frames by raster operations, nothing remembered,
// nothing left out. What the game's own code is held against.
#pragma once

#include <algorithm>
#include <cmath>
#include <deque>
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
  Bitmap background;                ///< as large as the field
  std::vector<RulesItem> items{};   ///< at least one
  std::vector<std::string> rows{};  ///< ten best times as "name|date|time"
};

/// Something the player does. `value` is the button, the key, the milliseconds waited, whether the panel is shown or
/// the theme chosen (kNoTheme: a folder that holds none). A key stands for something else or for nothing.
struct RulesEvent {
  enum class Kind { Move, Press, Release, Lose, Clock, Wait, Start, Panel, About, Details, Choose, Key } kind;
  int value = 0;
  float x = 0;
  float y = 0;
};
inline constexpr int kNoTheme = -1;

/// What happens while a box is open or after a theme was loaded, and what is typed into the box.
struct RulesBox {
  std::vector<RulesEvent> events;
  std::string answer;
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
  /// The last of the themes is the current one. The first is loaded for a folder without a theme, if `hasDefault`.
  RulesModel(std::vector<RulesTheme> themes, bool hasDefault)
      : theme(static_cast<int>(themes.size()) - 1), hasDefault_(hasDefault), themes_(std::move(themes)) {}

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
        if (Runs()) MouseMove(event.x, event.y);
        return;
      case RulesEvent::Kind::Press:
        buttons_ |= event.value;
        if (Runs()) MouseDown(event.value, event.x, event.y);
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
      case RulesEvent::Kind::Start: startWanted_ = phase != Phase::Loading; return;
      case RulesEvent::Kind::Panel: panelShown = event.value != 0; return;
      case RulesEvent::Kind::About: return RunTimer();
      case RulesEvent::Kind::Details: Box("No details found"); return;
      case RulesEvent::Kind::Choose: return Choose(event.value);
      case RulesEvent::Kind::Key: return;
    }
  }

  RulesTheme& Theme() { return themes_[static_cast<std::size_t>(theme)]; }

  std::deque<RulesBox> boxes;  ///< what the player did in those that are still to open

  enum class Phase { Idle, Loading, Running } phase = Phase::Idle;
  int theme;
  std::vector<RulesItem> items;
  int curItem = 0;
  int curCont = 0;
  bool mouseHeld = false;
  bool dragging = false;
  bool lockedOut = true;  // no theme is loaded yet
  bool clockShown = false;
  bool panelShown = false;
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

  bool Runs() const { return phase == Phase::Running && !stopped_; }

  void FollowUp() {
    if (phase == Phase::Loading) {
      phase = Phase::Running;
      stopped_ = false;
      start_ = now_;
    } else if (phase == Phase::Running && !startWanted_) {
      clock = NumberText((now_ - start_ + 5) / 10 / 100.0);
      if (stopped_)
        phase = Phase::Idle;
      else if (std::ranges::none_of(items, &RulesItem::itemInPlay))
        EndGame();
    }
    if (!std::exchange(startWanted_, false)) return;
    Load();
    phase = Phase::Loading;
  }

  void EndGame() {
    const std::string time = clock;
    Box("Game Over\r\nYou took: " + time + " seconds");
    const auto place = [&] {
      return std::ranges::find_if(Theme().rows, [&](const std::string& row) {
        return LeadingNumber(row.substr(row.rfind('|') + 1)) > LeadingNumber(time);
      });
    };
    if (place() != Theme().rows.end()) {
      const std::string name = Box("What is your name?");
      if (place() != Theme().rows.end()) {
        Theme().rows.insert(place(), name + "|03/14/26|" + time);
        Theme().rows.pop_back();
      }
    }
    panelShown = true;
    phase = Phase::Idle;
  }

  std::string During(const std::string& what) {
    log.push_back(what);
    if (boxes.empty()) return "";
    const RulesBox box = std::move(boxes.front());
    boxes.pop_front();
    for (const RulesEvent& event : box.events) Handle(event);
    return box.answer;
  }

  std::string Box(const std::string& text) {
    const std::string answer = During(text);
    RunTimer();
    return answer;
  }

  void Load() {
    items = Theme().items;
    curItem = curCont = 0;
    lockedOut = false;
    clock = "00.00";
    stopped_ = true;
  }

  void Choose(int which) {
    RunTimer();
    Handle({RulesEvent::Kind::Lose});
    if (which == kNoTheme) {
      Box("There is an important file missing. Can not load theme Empty\r\nLoading default theme..");
      if (!hasDefault_) {
        Box("Can't find Default theme");
        return;
      }
      which = 0;
    }
    theme = which;
    Load();
    RunTimer();
    During("Loaded");
    ShowFrame(true);
  }

  void ShowFrame(bool withContainer) {
    Bitmap frame = Theme().background;
    const auto draw = [&](int x, int y, const Cutout& cutout, int border) {
      DrawInFull(frame, x, y, Outer(cutout.picture, border), cutout.picture, cutout.mask);
    };
    draw(Theme().targetX, Theme().targetY, Theme().target, kFlat);
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
    const Bitmap& target = Theme().target.mask;
    if (x <= Theme().targetX || x >= Theme().targetX + target.Width()) return;
    if (y <= Theme().targetY || y >= Theme().targetY + target.Height()) return;
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
    const int x = std::clamp(targetX, 0, Theme().background.Width());
    const int y = std::clamp(targetY, 0, Theme().background.Height());
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

  bool hasDefault_;
  std::vector<RulesTheme> themes_;
  Bitmap work_{{61, 69}};  // of the contact test: as large as the item tested before
  int grabX_ = 0;
  int grabY_ = 0;
  int buttons_ = 0;
  bool startWanted_ = false;
  bool stopped_ = false;  // a theme was loaded during the game
  bool timerRuns_ = true;
  int timerStarted_ = 0;
  int now_ = 0;
  int start_ = 0;
};

}  // namespace sorvex
