// SPDX-License-Identifier: MIT
// The main window: its controls and the fields that live as long as it, without handlers.
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
  bool StopRendering = false;  ///< ends the frame loop, which checks it at the end of each frame
  Integer GrabX = 0;           ///< pointer position minus the current item's left edge at button-down
  Integer GrabY = 0;           ///< the same for y and the top edge
  bool MouseHeld =
      false;  ///< the left button was pressed on the field, and neither a release nor the game has ended that
  bool Dragging = false;  ///< the current item follows the pointer
  std::string HitTubeWav;
  std::string PutInContWav;
  std::string PickupWav;
  std::string LetGoWav;
  std::string ThemeDescription;
  std::string ThemeDate;
};

}  // namespace sorvex
