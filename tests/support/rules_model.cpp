// SPDX-License-Identifier: MIT
// The rules, procedure by procedure.
#include "support/rules_model.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <string_view>
#include <utility>

#include "base/numbers.h"
#include "support/raster.h"

namespace sorvex {
namespace {

constexpr Pixel kWorkColor = 0xFFC00000;
constexpr int kSunken = 2;  // frames of surfaces, a side
constexpr int kFlat = 1;
constexpr int kLeft = 1;

int Rounded(double value) { return static_cast<int>(std::nearbyint(value)); }  // halves to even

Size Outer(const Bitmap& picture, int frame) { return {picture.Width() + 2 * frame, picture.Height() + 2 * frame}; }

bool IsInside(float x, float y, int left, int top, const Bitmap& picture) {
  return x > static_cast<float>(left) && x < static_cast<float>(left + picture.Width()) &&
         y > static_cast<float>(top) && y < static_cast<float>(top + picture.Height());
}

}  // namespace

void RulesModel::Frame() {
  FollowUp();
  if (phase == Phase::Running) {
    ShowFrame(true);
    TestContact();
    TestPlacement();
  }
  RunTimer();
}

void RulesModel::Handle(const RulesEvent& event) {
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

void RulesModel::MouseDown(int button, float x, float y) {
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

void RulesModel::MouseMove(float x, float y) {
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

void RulesModel::MouseUp() {
  if (dragging) {
    log.push_back("LetGo");
    ReturnItem();
  }
  mouseHeld = dragging = false;
}

void RulesModel::FollowUp() {
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

void RulesModel::ShowFrame(bool withContainer) {
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

void RulesModel::TestContact() {
  const RulesItem& item = Current();
  if (!ContactByRasterOperations(item.x - item.contX, item.y - item.contY, item.look.mask, item.container.mask, work_))
    return;
  mouseHeld = dragging = false;
  ReturnItem();
  log.push_back("HitTube");
}

void RulesModel::TestPlacement() {
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

void RulesModel::ReturnItem() {
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

void RulesModel::StepTowards(int targetX, int targetY) {
  RulesItem& item = Current();
  const int x = std::clamp(targetX, 0, theme_.background.Width());
  const int y = std::clamp(targetY, 0, theme_.background.Height());
  const double dx = x - item.x;
  const double dy = y - item.y;
  const double distance = std::sqrt(dx * dx + dy * dy);
  item.x = distance <= 2 ? x : Rounded(item.x + dx * 2 / distance);
  item.y = distance <= 2 ? y : Rounded(item.y + dy * 2 / distance);
}

void RulesModel::RunTimer() {
  if (!timerRuns_ || now_ - timerStarted_ < 500) return;
  lockedOut = timerRuns_ = false;
}

std::string NameOfFrame(const Bitmap& frame) {
  const auto bytes = std::as_bytes(frame.Pixels());
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  return "frame " + std::to_string(std::hash<std::string_view>{}(text));
}

// Two limits of the procedure are not the game's and left out here: that copies end 4 pixels beyond the container's
// size, and that the second work surface has a size of its own.
bool ContactByRasterOperations(int dx, int dy, const Bitmap& itemMask, const Bitmap& containerMask, Bitmap& work) {
  const Size item = Outer(itemMask, kSunken);
  Bitmap inverted(item, kWhite);
  work = Bitmap(work.Extent(), kWorkColor);
  BitBlt(work, 0, 0, work.Extent(), containerMask, dx, dy, RasterOperation::MergePaint);
  BitBlt(work, 0, 0, work.Extent(), containerMask, dx, dy, RasterOperation::SrcInvert);
  BitBlt(inverted, 0, 0, item, itemMask, 0, 0, RasterOperation::SrcInvert);
  BitBlt(work, 0, 0, item, inverted, 0, 0, RasterOperation::MergePaint);
  BitBlt(work, 0, 0, item, inverted, 0, 0, RasterOperation::SrcAnd);
  Bitmap resized(itemMask.Extent(), kWorkColor);
  BitBlt(resized, 0, 0, resized.Extent(), work, 0, 0, RasterOperation::SrcCopy);
  work = std::move(resized);
  return std::ranges::count(work.Pixels(), kWhite) > 0;
}

}  // namespace sorvex
