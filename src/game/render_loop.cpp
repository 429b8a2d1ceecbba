// SPDX-License-Identifier: MIT
// The frame loop. The order of steps within a frame is part of the game's rules; frames are not paced.
#include "game/render_loop.h"

#include <cstdint>
#include <cstdlib>
#include <string>

#include "game/collision.h"
#include "game/drawing.h"
#include "game/field_name.h"
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

// Tests the current item against its own container, which need not be the one that is drawn. True on contact.
bool TestCollision(Game& game) {
  frmMain& form = game.form;
  const modVariables& state = game.state;
  const Integer item = state.CurItem;
  if (!HitsContainer(state.ItemX(item), state.ItemY(item), state.ContX(item), state.ContY(item), form.PicMask(item),
                     form.PicContMask(item), form.picCD))
    return false;
  EndDrag(form);
  ReturnItem(game);
  modPlayWav::PlayWav(game.desktop, form.HitTubeWav);
  return true;
}

void TestPlacement(Game& game) {
  frmMain& form = game.form;
  modVariables& state = game.state;
  const Integer item = state.CurItem;
  if (!OverTarget(state.ItemX(item), state.ItemY(item), state.PlainX(0), state.PlainY(0), form.PicMask(item),
                  form.PicPlainMask(0)))
    return;
  EndDrag(form);
  const bool putIn = state.ItemInPlay(item);
  if (putIn) modPlayWav::PlayWav(game.desktop, form.PutInContWav);
  state.ItemInPlay(item) = false;
  state.ContInPlay(state.CurCont) = false;
  if (putIn) NameField(form, state);
}

void ReportGameOver(Game& game, double elapsed) {
  game.desktop.ShowMessage("Game Over\r\nYou took: " + NumberText(elapsed) + " seconds", game.desktop.Version().Title,
                           BoxIcon::None);
  RecordHighScore(game.desktop, game.form, game.state.ThemeName, elapsed);
  cmdShowHighscores_Click(game.desktop, game.form, game.state.ThemeName);
  game.form.StopRendering = true;
  game.state.GameEnded = true;
}

FrameState StateNow(const Game& game) {
  const frmMain& form = game.form;
  const modVariables& state = game.state;
  const Bitmap& background = form.PicBlank.Image();
  return {.themeLoads = state.ThemeLoads,
          .background = background.Pixels().data(),
          .backgroundSize = background.Extent(),
          .backbuffRevision = form.PicBackbuff.Revision(),
          .canvasRevision = form.PicCanvas.Revision(),
          .table = state,
          .targetX = state.PlainX(0),
          .targetY = state.PlainY(0),
          .currentItem = state.CurItem,
          .currentContainer = state.CurCont,
          .mouseHeld = form.MouseHeld,
          .dragging = form.Dragging,
          .workSize = form.picCD.ScaleSize()};
}

// How many milliseconds event delivery may wait when nothing moves: until the elapsed time, if it is shown, changes by
// a hundredth.
int Patience(const Game& game) {
  if (!game.form.lblTime.Visible) return Desktop::kUntilAnEvent;
  const auto milliseconds =
      static_cast<std::uint32_t>(game.desktop.TickCount()) - static_cast<std::uint32_t>(game.state.GameStart);
  return 10 - static_cast<int>((milliseconds + 5) % 10);
}

// Runs one frame; false if GameEnded was set during event delivery.
bool RunFrame(Game& game) {
  const bool repeated = !DrawAndTestFrame(game);
  game.desktop.DeliverEvents(repeated ? Patience(game) : 0);
  if (game.state.GameEnded) return false;
  const double elapsed = ShowElapsed(game);
  // A theme loaded by a handler ends the game without a report, even a theme without items.
  if (!game.form.StopRendering && EveryItemIsPutIn(game.state)) ReportGameOver(game, elapsed);
  return true;
}

}  // namespace

void RenderLoop(Game& game) {
  try {
    game.state.GameStart = game.desktop.TickCount();
    game.form.StopRendering = false;
    while (RunFrame(game) && !game.form.StopRendering) {
    }
  } catch (...) {
    const RuntimeError error = CurrentError();
    // The box takes the pointer capture away, which releases the button: end the drag first, so that the item stays
    // put.
    EndDrag(game.form);
    game.desktop.ShowMessage("Error: " + std::to_string(error.Number()) + "\r\n" + error.Description() +
                                 "\r\nProblem in main rendering loop",
                             "uhh oh!!", BoxIcon::Critical);
    game.form.StopRendering = true;
  }
}

bool GameRuns(const Game& game) {
  const modVariables::Start start = game.state.StartCommand;
  const bool playing = start == modVariables::Start::Playing || start == modVariables::Start::Restarting;
  return playing && !game.form.StopRendering;
}

bool DrawAndTestFrame(Game& game) {
  if (game.frame.settled == StateNow(game)) return false;
  ShowFrame(game, ContainerShown::Yes);
  const FrameState before = StateNow(game);
  const bool touched = TestCollision(game);
  TestPlacement(game);
  if (!touched && before == StateNow(game)) game.frame.settled = before;
  return true;
}

double ShowElapsed(Game& game) {
  const double elapsed = ElapsedSeconds(game.state.GameStart, game.desktop.TickCount());
  game.form.lblTime.SetCaption(game.desktop, NumberText(elapsed));
  return elapsed;
}

double ElapsedSeconds(Long start, Long now) {
  const Long milliseconds = ToLong(static_cast<double>(now) - start);
  const Long magnitude = (std::abs(milliseconds / 10)) + (std::abs(milliseconds % 10) >= 5 ? 1 : 0);
  return (milliseconds < 0 ? -magnitude : magnitude) / 100.0;
}

}  // namespace sorvex
