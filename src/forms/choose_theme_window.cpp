// SPDX-License-Identifier: MIT
// The theme chooser's design.
#include "forms/choose_theme_window.h"

#include "forms/design.h"

namespace sorvex {

frmChooseTheme::frmChooseTheme(TwipRatio twipsPerPixel) {
  Name = "frmChooseTheme";
  Caption = "Choose a theme";
  Border = FormBorder::FixedDialog;
  CenterOnOwner = true;
  SetClientSize(*this, {290, 157}, twipsPerPixel);

  const ButtonDesign buttons[] = {
      {OKButton, "OKButton", nullptr, "OK", ButtonRole::Default, 2, 200, 8, 81, 25},
      {CancelButton, "CancelButton", nullptr, "Cancel", ButtonRole::Cancel, 3, 200, 40, 81, 25},
  };
  for (const ButtonDesign& design : buttons) Apply(design);
  Place(List1, "List1", 8, 8, 185, 134);
  List1.TabIndex = 1;
  List1.AccessibleName = "Themes";

  Controls = {&List1, &OKButton, &CancelButton};  // front to back
}

}  // namespace sorvex
