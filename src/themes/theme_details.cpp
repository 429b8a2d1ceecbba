// SPDX-License-Identifier: MIT
// The theme's description and date in a box.
#include "themes/theme_details.h"

#include <string>

#include "ui/about_box.h"

namespace sorvex {
namespace {

void ShowDetails(Game& game) {
  const frmMain& form = game.form;
  const bool none = form.ThemeDescription.empty() && form.ThemeDate.empty();
  game.desktop.ShowMessage(
      none ? std::string("No details found")
           : "Description:\r\n\t" + form.ThemeDescription + "\r\nDate:\r\n\t" + form.ThemeDate + "\r\n",
      "Theme Details", BoxIcon::Information);
}

}  // namespace

void imgAbout_MouseUp(Game& game, Integer button) {
  if (button == kLeftButton) ShowAbout(game.desktop, game.form);
  if (button == kRightButton) ShowDetails(game);
}

}  // namespace sorvex
