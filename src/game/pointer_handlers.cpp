// SPDX-License-Identifier: MIT
// What the pointer does on the play field.
#include "game/pointer_handlers.h"

#include <string>

#include "game/mod_play_wav.h"
#include "game/return_item.h"

namespace sorvex {
namespace {

// True if (x, y) lies strictly inside the drawing area of a surface at (left, top), edges excluded.
bool IsInside(float x, float y, Integer left, Integer top, const PictureBox& surface) {
  return x > static_cast<float>(left) && x < static_cast<float>(left) + surface.ScaleWidth() &&
         y > static_cast<float>(top) && y < static_cast<float>(top) + surface.ScaleHeight();
}

void SelectContainerAt(Game& game, float x, float y) {
  modVariables& state = game.state;
  for (Long i = 0; i <= state.LastItem; ++i) {
    if (!state.ContInPlay(i) || !IsInside(x, y, state.ContX(i), state.ContY(i), game.form.picCont(i))) continue;
    state.CurItem = static_cast<Integer>(i);
    state.CurCont = static_cast<Integer>(i);
    return;
  }
}

}  // namespace

void PicCanvas_MouseDown(Game& game, Integer button, float x, float y) {
  frmMain& form = game.form;
  modVariables& state = game.state;
  if (button != kLeftButton) return;
  form.MouseHeld = true;
  for (Long i = 0; i <= state.LastItem; ++i) {
    if (!IsInside(x, y, state.ItemX(i), state.ItemY(i), form.PicSprite(i))) continue;
    modPlayWav::PlayWav(game.desktop, form.PickupWav);
    state.CurItem = static_cast<Integer>(i);
    break;
  }
  form.GrabX = ToInteger(static_cast<double>(x) - state.ItemX(state.CurItem));
  form.GrabY = ToInteger(static_cast<double>(y) - state.ItemY(state.CurItem));
}

void PicCanvas_MouseMove(Game& game, float x, float y) {
  frmMain& form = game.form;
  modVariables& state = game.state;
  if (IsLockedOut(form)) return;
  const Integer item = state.CurItem;
  const bool onItem =
      CheckForDrag(game, ToInteger(x), ToInteger(y), state.ItemX(item), state.ItemY(item), form.PicMask(item));
  if (form.MouseHeld && onItem) form.Dragging = true;
  if (form.Dragging) {
    state.ItemX(item) = ToInteger(static_cast<double>(x) - form.GrabX);
    state.ItemY(item) = ToInteger(static_cast<double>(y) - form.GrabY);
  }
  if (!form.MouseHeld) SelectContainerAt(game, x, y);
}

void PicCanvas_MouseUp(Game& game) {
  if (game.form.Dragging) {
    modPlayWav::PlayWav(game.desktop, game.form.LetGoWav);
    ReturnItem(game);
  }
  game.form.MouseHeld = false;
  game.form.Dragging = false;
}

bool CheckForDrag(Game& game, Integer x, Integer y, Integer left, Integer top, const PictureBox& mask) {
  try {
    const Integer column = ToInteger(x - left);
    const Integer row = ToInteger(y - top);
    return mask.Image().Bounds().Contains(column, row) && mask.Image().At(column, row) == kBlack;
  } catch (const RuntimeError& error) {
    game.desktop.ShowMessage("Err: " + std::to_string(error.Number()) + "\r\n" + error.Description() +
                                 "\r\nError from CheckForDrag function",
                             game.desktop.Version().Title, BoxIcon::Exclamation);
    return false;
  }
}

}  // namespace sorvex
