// SPDX-License-Identifier: MIT
// The chooser's handlers.
#include "themes/choose_theme.h"

#include "base/files.h"
#include "game/drawing.h"
#include "themes/load_theme.h"

namespace sorvex {
namespace {

void ChooseTheme(Game& game) {
  frmChooseTheme form(game.desktop.TwipsPerPixel());
  form.OKButton.Click = [&] { OKButton_Click(game.state, form); };
  form.List1.DoubleClick = form.OKButton.Click;
  form.CancelButton.Click = [&form] { CancelButton_Click(form); };
  Form_Load(game.desktop, form);
  game.desktop.Show(form, &game.form);
}

}  // namespace

void Image2_Click(Game& game) {
  const std::string shown = game.state.ThemeName;
  ChooseTheme(game);
  const std::string chosen = game.state.ThemeName;
  if (!LoadTheme(game, chosen)) {
    game.state.ThemeName = shown;  // it is still the theme on the field
    return;
  }
  ShowWaitingFrame(game);
}

void Form_Load(Desktop& desktop, frmChooseTheme& form) { form.List1.List = FoldersIn(desktop.ProgramFolder()); }

void OKButton_Click(modVariables& state, frmChooseTheme& form) {
  if (form.List1.ListIndex < 0) return;
  state.ThemeName = form.List1.List[static_cast<std::size_t>(form.List1.ListIndex)];
  form.Loaded = false;
}

void CancelButton_Click(frmChooseTheme& form) { form.Loaded = false; }

}  // namespace sorvex
