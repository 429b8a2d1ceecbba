// SPDX-License-Identifier: MIT
// The frame loop. Every frame's order is part of the game's rules; nothing paces it.
#include "game/render_loop.h"

#include <cstdlib>
#include <string>

#include "game/collision.h"
#include "game/drawing.h"
#include "game/mod_play_wav.h"
#include "game/return_item.h"
#include "highscores/panel.h"
#include "highscores/record_high_score.h"

namespace sorvex {
namespace {

void EndDrag(frmMain& form) {
  form.MouseHeld = false;
  form.Dragging = false;
}

// The container tested is the current item's own, which need not be the one that is drawn.
void TestCollision(Game& game) {
  frmMain& form = game.form;
  const modVariables& state = game.state;
  const Integer item = state.CurItem;
  if (!HitsContainer(state.ItemX(item), state.ItemY(item), state.ContX(item), state.ContY(item), form.PicMask(item),
                     form.PicContMask(item), form.picCD))
    return;
  EndDrag(form);
  ReturnItem(game);
  modPlayWav::PlayWav(game.desktop, form.HitTubeWav);
}

void TestPlacement(Game& game) {
  frmMain& form = game.form;
  modVariables& state = game.state;
  const Integer item = state.CurItem;
  if (!OverTarget(state.ItemX(item), state.ItemY(item), state.PlainX(0), state.PlainY(0), form.PicMask(item),
                  form.PicPlainMask(0)))
    return;
  EndDrag(form);
  if (state.ItemInPlay(item)) modPlayWav::PlayWav(game.desktop, form.PutInContWav);
  state.ItemInPlay(item) = false;
  state.ContInPlay(state.CurCont) = false;
}

bool EveryItemIsPutIn(const modVariables& state) {
  for (Long i = 0; i <= state.LastItem; ++i)
    if (state.ItemInPlay(i)) return false;
  return true;
}

void ReportGameOver(Game& game, double elapsed) {
  game.desktop.ShowMessage("Game Over\r\nYou took: " + NumberText(elapsed) + " seconds", game.desktop.Version().Title,
                           BoxIcon::None);
  RecordHighScore(game.desktop, game.form, game.state.ThemeName, elapsed);
  cmdShowHighscores_Click(game.desktop, game.form, game.state.ThemeName);
  game.form.StopRendering = true;
  game.state.GameEnded = true;
}

// One frame; false when the run was ended by the start of another.
bool RunFrame(Game& game, Long start) {
  DrawAndTestFrame(game);
  game.desktop.DeliverEvents();
  if (game.state.GameEnded) return false;
  const double elapsed = ElapsedSeconds(start, game.desktop.TickCount());
  game.form.lblTime.SetCaption(game.desktop, NumberText(elapsed));
  // A theme loaded by one of the events ends the run without a report, also when it has no items.
  if (!game.form.StopRendering && EveryItemIsPutIn(game.state)) ReportGameOver(game, elapsed);
  return true;
}

}  // namespace

void RenderLoop(Game& game) {
  try {
    const Long start = game.desktop.TickCount();
    game.form.StopRendering = false;
    while (RunFrame(game, start) && !game.form.StopRendering) {
    }
  } catch (const RuntimeError& error) {
    game.desktop.ShowMessage("Error: " + std::to_string(error.Number()) + "\r\n" + error.Description() +
                                 "\r\nProblem in main rendering loop",
                             "uhh oh!!", BoxIcon::Critical);
    game.form.StopRendering = true;
  }
}

void DrawAndTestFrame(Game& game) {
  ComposeFrame(game, game.form.PicBackbuff);
  DrawContainer(game, game.form.PicBackbuff);
  PresentFrame(game);
  TestCollision(game);
  TestPlacement(game);
}

double ElapsedSeconds(Long start, Long now) {
  const Long milliseconds = ToLong(static_cast<double>(now) - start);
  const Long magnitude = (std::abs(milliseconds / 10)) + (std::abs(milliseconds % 10) >= 5 ? 1 : 0);
  return (milliseconds < 0 ? -magnitude : magnitude) / 100.0;
}

}  // namespace sorvex
