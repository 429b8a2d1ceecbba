// SPDX-License-Identifier: MIT
// The main window: its controls with their whole design, and the fields that live as long as it. No handler stands
// here.
#pragma once

#include <string>

#include "base/numbers.h"
#include "platform/controls.h"

namespace sorvex {

struct frmMain : Form {
  frmMain();

  // The play field and the surfaces behind it
  PictureBox PicCanvas;
  PictureBox PicBackbuff;
  PictureBox PicBlank;
  PictureBox picBg1;
  PictureBox picBG2;
  ControlArray<PictureBox> PicSprite{*this};
  ControlArray<PictureBox> PicMask{*this};
  ControlArray<PictureBox> picCont{*this};
  ControlArray<PictureBox> PicContMask{*this};
  ControlArray<PictureBox> PicPlainSprite{*this};
  ControlArray<PictureBox> PicPlainMask{*this};
  PictureBox picCD;
  PictureBox picInvertedMask;

  // The highscore panel
  PictureBox picHighScores;
  Label Label1;
  ControlArray<Label> lblHighNum{*this};
  ControlArray<Label> lblHighName{*this};
  ControlArray<Label> lblHighTime{*this};
  ControlArray<Label> lblHighDate{*this};
  CommandButton cmdHideScores;

  // The row below the field
  CommandButton Command1;
  CommandButton cmdShowHighscores;
  Image Image2;
  Image imgAbout;
  Image Image1;
  Label lblTime;

  Timer tmrChangePicBack;

  // Fields
  bool StopRendering = false;  ///< the frame loop repeats until this is set at the end of a frame
  Integer GrabX = 0;           ///< pointer less the current item's left edge, taken at button-down
  Integer GrabY = 0;           ///< the same for the top edge
  bool MouseHeld = false;      ///< the left button went down on the field and nothing has ended that yet
  bool Dragging = false;       ///< the current item follows the pointer
  std::string HitTubeWav;
  std::string PutInContWav;
  std::string PickupWav;
  std::string LetGoWav;
  std::string ThemeDescription;
  std::string ThemeDate;
};

}  // namespace sorvex
