// SPDX-License-Identifier: MIT
// The theme chooser's window: a list of the folders beside the executable, OK and Cancel.
#pragma once

#include "platform/controls.h"

namespace sorvex {

struct frmChooseTheme : Form {
  /// Lays the window out for a desktop with `twipsPerPixel`.
  explicit frmChooseTheme(TwipRatio twipsPerPixel);

  ListBox List1;
  CommandButton OKButton;
  CommandButton CancelButton;
};

}  // namespace sorvex
