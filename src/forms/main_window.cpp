// SPDX-License-Identifier: MIT
// The main window's design: tables that list every control with its initial properties.
#include "forms/main_window.h"

#include "forms/design.h"

namespace sorvex {

frmMain::frmMain() {
  Name = "frmMain";
  Caption = "Sorvex";
  BackColor = Rgb(192, 192, 192);
  Border = FormBorder::Sizable;
  MinButton = true;
  Icon = BuiltIn::WindowIcon;

  constexpr auto sunken = Frame::Sunken;
  constexpr auto flat = Frame::Flat;
  constexpr Color face = kButtonFaceColor;
  constexpr Color window = kWindowColor;
  constexpr Color white = Rgb(255, 255, 255);
  const SurfaceDesign surfaces[] = {
      {PicCanvas, "PicCanvas", kShown, sunken, kFixed, kPersistent, face, 8, 8, 320, 240, BuiltIn::Canvas},
      {PicBackbuff, "PicBackbuff", kHidden, sunken, kFixed, kPersistent, face, 256, 208, 33, 33},
      {PicBlank, "PicBlank", kHidden, sunken, kAutoSize, kPersistent, white, 216, 208, 33, 33},
      {picBg1, "picBg1", kHidden, sunken, kAutoSize, kTransient, face, 96, 296, 265, 197},
      {picBG2, "picBG2", kHidden, sunken, kAutoSize, kTransient, face, 368, 296, 281, 197},
      {PicSprite(0), "PicSprite", kHidden, sunken, kAutoSize, kPersistent, face, 336, 8, 42, 15},
      {PicMask(0), "PicMask", kHidden, sunken, kAutoSize, kPersistent, face, 336, 48, 42, 15},
      {picCont(0), "picCont", kHidden, sunken, kAutoSize, kPersistent, face, 336, 88, 52, 58},
      {PicContMask(0), "PicContMask", kHidden, sunken, kAutoSize, kPersistent, face, 336, 152, 52, 58},
      {PicPlainSprite(0), "PicPlainSprite", kHidden, flat, kAutoSize, kPersistent, window, 408, 128, 110, 75},
      {PicPlainMask(0), "PicPlainMask", kHidden, flat, kAutoSize, kPersistent, window, 576, 128, 110, 75},
      {picCD, "picCD", kHidden, sunken, kFixed, kPersistent, Rgb(192, 0, 0), 8, 312, 65, 73},
      {picInvertedMask, "picInvertedMask", kHidden, sunken, kFixed, kPersistent, white, 408, 208, 281, 265},
      {picHighScores, "picHighScores", kHidden, sunken, kAutoSize, kTransient, Rgb(128, 255, 255), -248, 416, 321, 285,
       BuiltIn::HighScoresPanel},
  };

  const Font title{"Arial Black", 15.75F, 700, true};
  const Font row{"Arial", 12, 700};
  const Font clock{"Westminster", 14.25F, 800};
  PictureBox* const panel = &picHighScores;
  const LabelDesign labels[] = {
      {Label1, "Label1", panel, kShown, "HIGHSCORES", Rgb(255, 0, 0), title, 72, 0, 173, 29},
      {lblHighNum(0), "lblHighNum", panel, kShown, "1.", Rgb(0, 0, 0), row, 8, 32, 14, 19},
      {lblHighName(0), "lblHighName", panel, kShown, "n", Rgb(0, 0, 192), row, 40, 32, 10, 19},
      {lblHighTime(0), "lblHighTime", panel, kShown, "12", Rgb(255, 255, 255), row, 248, 32, 18, 19},
      {lblHighDate(0), "lblHighDate", panel, kShown, "99/99/99", Rgb(128, 255, 255), row, 152, 32, 62, 19},
      {lblTime, "lblTime", nullptr, kHidden, "00.00", Rgb(0, 0, 0), clock, 0, 264, 49, 19},
  };

  const ButtonDesign buttons[] = {
      {Command1, "Command1", nullptr, "&Start", ButtonRole::Plain, 0, 32, 256, 105, 33, "Start the game"},
      {cmdShowHighscores, "cmdShowHighscores", nullptr, "&HighScores", ButtonRole::Default, 1, 152, 256, 105, 33},
      {cmdHideScores, "cmdHideScores", panel, "Close", ButtonRole::Plain, 3, 104, 248, 105, 25},
  };

  const ImageDesign images[] = {
      {Image2, "Image2", BuiltIn::FolderIcon, 304, 264, 24, 24, BuiltIn::None, "Change the theme"},
      {imgAbout, "imgAbout", BuiltIn::AboutIcon, 80, 272, 33, 33, BuiltIn::InfoHandCursor,
       "Lef click for program About, right click for description of this theme"},
      {Image1, "Image1", BuiltIn::None, 0, 264, 49, 25},
  };

  for (const SurfaceDesign& design : surfaces) Apply(design);
  for (const LabelDesign& design : labels) Apply(design);
  for (const ButtonDesign& design : buttons) Apply(design);
  for (const ImageDesign& design : images) Apply(design);
  PicCanvas.TabIndex = 2;
  PicCanvas.AccessibleName = "Play field";
  picHighScores.AccessibleName = "Best times";
  Image1.AccessibleName = "Show or hide the time";
  // Each column of the panel is cut off before the next one, the last before the panel's edge.
  lblHighName(0).PaintedTo = 148;
  lblHighDate(0).PaintedTo = 244;
  lblHighTime(0).PaintedTo = 313;

  tmrChangePicBack.Name = "tmrChangePicBack";
  tmrChangePicBack.Interval = 500;
  tmrChangePicBack.Enabled = true;

  // clang-format off
  Controls = {  // front to back
      &picHighScores, &cmdShowHighscores, &PicCanvas, &Command1,
      &Image2, &Image1, &imgAbout, &lblTime,
      &cmdHideScores, &Label1, &lblHighNum(0), &lblHighName(0), &lblHighTime(0), &lblHighDate(0),
      &PicBackbuff, &PicBlank, &picBg1, &picBG2, &picCD, &picInvertedMask,
      &PicSprite(0), &PicMask(0), &picCont(0), &PicContMask(0), &PicPlainSprite(0), &PicPlainMask(0),
      &tmrChangePicBack};
  // clang-format on
  for (auto* array : {&PicSprite, &PicMask, &picCont, &PicContMask, &PicPlainSprite, &PicPlainMask})
    (*array)(0).Index = 0;
  for (auto* array : {&lblHighNum, &lblHighName, &lblHighTime, &lblHighDate}) (*array)(0).Index = 0;
}

}  // namespace sorvex
