// SPDX-License-Identifier: MIT
// Layout around the play field, and the main window's handlers.
#include "ui/main_window_commands.h"

#include "base/finally.h"
#include "game/render_loop.h"
#include "highscores/panel.h"
#include "platform/desktop_properties.h"
#include "themes/load_theme.h"
#include "themes/theme_details.h"
#include "ui/about_box.h"

namespace sorvex {
namespace {

void PlayOneGame(Game& game) {
  frmMain& form = game.form;
  game.state.StartCommand = modVariables::Start::Preparing;
  game.state.GameEnded = false;
  if (!Form_Load(game) && !ReturnItemsToStart(game)) return;
  form.PicBackbuff.Resize(form.PicCanvas.Width, form.PicCanvas.Height);
  form.PicBlank.Resize(form.PicCanvas.Width, form.PicCanvas.Height);
  game.state.StartCommand = modVariables::Start::Playing;
  RenderLoop(game);
}

}  // namespace

// Positions are not rounded here: fractions of a twip are far below a pixel.
void LayOut(frmMain& form, TwipRatio twipsPerPixel) {
  const auto [across, down] = twipsPerPixel;
  form.Width = across * form.PicCanvas.Width + 350;
  form.Height = 2 * down * form.Command1.Height + down * form.PicCanvas.Height + 225;
  form.picHighScores.Left = 8;
  form.picHighScores.Top = 8;
  form.Command1.Top = form.PicCanvas.Height + 15;
  form.cmdShowHighscores.Top = form.PicCanvas.Height + 15;
  const float gap = (form.Width / across - form.Command1.Width - form.cmdShowHighscores.Width) / 3;
  form.Command1.Left = form.PicCanvas.Left + 615 / across;
  form.cmdShowHighscores.Left = form.Command1.Left + form.Command1.Width + gap;
  form.imgAbout.Top = form.Command1.Top;
  form.imgAbout.Left = form.Command1.Left + form.Command1.Width + 5;
  form.Image2.Left = form.cmdShowHighscores.Left + form.cmdShowHighscores.Width + 1;
}

bool Form_Load(Game& game) {
  BuildHighScoreRows(game.desktop, game.form);
  const std::string theme = game.state.ThemeName;
  const bool loaded = LoadTheme(game, theme);
  game.state.CurItem = 0;
  game.state.CurCont = 0;
  LayOut(game.form, game.desktop.TwipsPerPixel());
  return loaded;
}

void Command1_Click(Game& game) {
  modVariables& state = game.state;
  if (state.StartCommand == modVariables::Start::Playing) {
    state.StartCommand = modVariables::Start::Restarting;
    state.GameEnded = true;
  }
  if (state.StartCommand != modVariables::Start::Idle) return;
  const Finally idle([&] { state.StartCommand = modVariables::Start::Idle; });
  do {
    PlayOneGame(game);
  } while (state.StartCommand == modVariables::Start::Restarting);
}

void imgAbout_MouseUp(Game& game, Integer button) {
  if (button == kLeftButton) ShowAbout(game.desktop, game.form);
  if (button == kRightButton) ShowThemeDetails(game);
}

void Image1_Click(Game& game) {
  Label& time = game.form.lblTime;
  if (time.Visible) {
    time.Visible = false;
    return;
  }
  // While the label is hidden the frame loop may wait without updating it.
  if (GameRuns(game)) ShowElapsed(game);
  ShowControl(game.desktop, game.form, time);
}

void Form_Unload(frmMain& form) {
  form.StopRendering = true;
  throw ProgramEnded{};
}

}  // namespace sorvex
