// SPDX-License-Identifier: MIT
// Counts the items left and composes the name.
#include "game/field_name.h"

#include <string>

namespace sorvex {

void NameField(frmMain& form, const modVariables& state) {
  int left = 0;
  for (Long i = 0; i <= state.LastItem; ++i) left += state.ItemInPlay(i) ? 1 : 0;
  form.PicCanvas.AccessibleName =
      "Play field, theme " + state.ThemeName + ", " + std::to_string(left) + (left == 1 ? " item left" : " items left");
}

}  // namespace sorvex
