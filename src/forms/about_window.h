// SPDX-License-Identifier: MIT
// The about box's window: its controls and fields.
#pragma once

#include "platform/controls.h"

namespace sorvex {

struct frmAbout : Form {
  /// Lays the window out for a desktop with `twipsPerPixel`.
  explicit frmAbout(TwipRatio twipsPerPixel);

  Image imgLogo;
  Label lblTit;
  Label lblVersion;
  PictureBox picCont;
  Label lblComments;
  Label lblDisc;
  Label lblCopyright;
  Shape Shape1;
  Line Line1;
  Label lblWeb;
  Label lblEmail;
  Timer Timer1;
  Timer tmrScroll;

  bool LogoFollows = false;  ///< the player is dragging the logo
};

}  // namespace sorvex
