// SPDX-License-Identifier: MIT
// Event bindings, and the program's outermost loop.
#include "startup/program.h"

#include <string>

#include "game/pointer_handlers.h"
#include "game/render_loop.h"
#include "game/return_item.h"
#include "highscores/panel.h"
#include "platform/desktop_properties.h"
#include "startup/start_up.h"
#include "themes/choose_theme.h"
#include "ui/main_window_commands.h"

namespace sorvex {
namespace {

void ShowUncaught(Desktop& desktop, const RuntimeError& error) {
  desktop.ShowMessage("Error: " + std::to_string(error.Number()) + "\r\n" + error.Description(),
                      desktop.Version().Title, BoxIcon::Critical);
}

}  // namespace

Program::Program(Desktop& desktop) : game{desktop, form, state} {
  PaintDesign(desktop, form);
  BindEvents();
}

void Program::BindEvents() {
  form.Unload = [this] { Form_Unload(form); };
  form.Command1.Click = [this] { Command1_Click(game); };
  form.cmdShowHighscores.Click = [this] { cmdShowHighscores_Click(game.desktop, form, state.ThemeName); };
  form.cmdHideScores.Click = [this] { cmdHideScores_Click(form); };
  form.picHighScores.Paint = [this] { picHighScores_Paint(form); };
  // Presses and moves count only during a game; releases always, so that no button stays held when a game ends.
  form.PicCanvas.MouseDown = [this](Integer button, Integer, float x, float y) {
    if (GameRuns(game)) PicCanvas_MouseDown(game, button, x, y);
  };
  form.PicCanvas.MouseMove = [this](Integer, Integer, float x, float y) {
    if (GameRuns(game)) PicCanvas_MouseMove(game, x, y);
  };
  form.PicCanvas.MouseUp = [this](Integer, Integer, float, float) { PicCanvas_MouseUp(game); };
  form.Image2.Click = [this] { Image2_Click(game); };
  form.Image2.Commands = {{"Change the theme", 3, form.Image2.Click}};
  form.imgAbout.MouseUp = [this](Integer button, Integer, float, float) { imgAbout_MouseUp(game, button); };
  form.imgAbout.Commands = {{"About", 1, [this] { imgAbout_MouseUp(game, kLeftButton); }},
                            {"Theme details", 2, [this] { imgAbout_MouseUp(game, kRightButton); }}};
  form.Image1.Click = [this] { Image1_Click(game); };
  form.tmrChangePicBack.Tick = [this] { tmrChangePicBack_Timer(form); };
}

void Program::Initialize() {
  form.tmrChangePicBack.Started = game.desktop.TickCount();
  Form_Initialize(game);
  Form_Load(game);
}

int RunProgram(Desktop& desktop) {
  try {
    Program program(desktop);
    for (bool started = false;; started = true) {
      try {
        if (!started) program.Initialize();
        desktop.Show(program.form, nullptr);
        return 0;
      } catch (...) {
        ShowUncaught(desktop, CurrentError());
      }
    }
  } catch (const ProgramEnded&) {
    return 0;
  }
}

}  // namespace sorvex
