// SPDX-License-Identifier: MIT
// Composing the text of the theme details box.
#include "themes/theme_details.h"

#include <string>

namespace sorvex {

void ShowThemeDetails(Game& game) {
  const frmMain& form = game.form;
  const bool none = form.ThemeDescription.empty() && form.ThemeDate.empty();
  game.desktop.ShowMessage(
      none ? std::string("No details found")
           : "Description:\r\n\t" + form.ThemeDescription + "\r\nDate:\r\n\t" + form.ThemeDate + "\r\n",
      "Theme Details", BoxIcon::Information);
}

}  // namespace sorvex
