// SPDX-License-Identifier: MIT
// The return animation. It is not paced: it runs as fast as frames can be drawn.
#include "game/return_item.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "game/drawing.h"

namespace sorvex {
namespace {

constexpr int kRestInset = 5;
constexpr double kStepLength = 2;
constexpr int kArrivalTolerance = 3;

bool IsNear(Integer position, Integer target) { return std::abs(position - target) <= kArrivalTolerance; }

Integer HeldInside(Integer target, int size) { return ToInteger(std::clamp<int>(target, 0, size)); }

}  // namespace

RestPlace::RestPlace(Integer containerLeft, Integer containerTop, int containerHeight, int itemHeight)
    : x(ToInteger(containerLeft + kRestInset)),
      y(ToInteger(containerTop + containerHeight - kRestInset - itemHeight)) {}

void ReturnItem(Game& game) {
  frmMain& form = game.form;
  modVariables& state = game.state;
  const Integer item = state.CurItem;
  form.PicBlank.SetPicture(form.picBG2.PictureObject());
  if (!state.ItemInPlay(item)) {
    form.tmrChangePicBack.Start(game.desktop.TickCount());
    return;
  }
  const RestPlace rest(state.ContX(item), state.ContY(item), form.picCont(item).ScaleSize().height,
                       form.PicSprite(item).ScaleSize().height);
  form.tmrChangePicBack.Start(game.desktop.TickCount());
  for (;;) {
    const Integer fromX = state.ItemX(item);
    const Integer fromY = state.ItemY(item);
    StepTowards(game, fromX, fromY, rest.x, rest.y);
    if (IsNear(state.ItemX(item), rest.x) && IsNear(state.ItemY(item), rest.y)) break;
    // A rest position outside the field cannot be reached: stop when a step no longer moves the item.
    if (state.ItemX(item) == fromX && state.ItemY(item) == fromY) break;
    ShowFrame(game, ContainerShown::No);
  }
  state.ItemX(item) = rest.x;
  state.ItemY(item) = rest.y;
}

void StepTowards(Game& game, Integer x, Integer y, Integer targetX, Integer targetY) {
  const Size field = game.form.PicCanvas.ScaleSize();
  Integer newX = HeldInside(targetX, field.width);
  Integer newY = HeldInside(targetY, field.height);
  const double dx = newX - x;
  const double dy = newY - y;
  const double distance = std::sqrt(dx * dx + dy * dy);
  if (distance > kStepLength) {
    newX = ToInteger(x + dx * kStepLength / distance);
    newY = ToInteger(y + dy * kStepLength / distance);
  }
  game.state.ItemX(game.state.CurItem) = newX;
  game.state.ItemY(game.state.CurItem) = newY;
}

bool IsLockedOut(const frmMain& form) { return form.PicBlank.PictureObject() == form.picBG2.PictureObject(); }

void tmrChangePicBack_Timer(frmMain& form) {
  form.PicBlank.SetPicture(form.picBg1.PictureObject());
  form.tmrChangePicBack.Enabled = false;
}

}  // namespace sorvex
