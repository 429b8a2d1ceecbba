// SPDX-License-Identifier: MIT
// The about box's design.
#include "forms/about_window.h"

#include "forms/design.h"

namespace sorvex {

frmAbout::frmAbout(TwipRatio twipsPerPixel) {
  constexpr Color black = Rgb(0, 0, 0);
  constexpr Color yellow = Rgb(255, 255, 0);
  constexpr Color red = Rgb(255, 0, 0);
  constexpr Color blue = Rgb(0, 0, 255);
  constexpr auto center = Alignment::Center;
  Name = "frmAbout";
  Caption = "About";
  BackColor = yellow;
  Border = FormBorder::FixedToolWindow;
  CenterOnOwner = true;
  SetClientSize(*this, {312, 213}, twipsPerPixel);

  Apply(SurfaceDesign{picCont, "picCont", kShown, Frame::None, kFixed, kTransient, yellow, 104, 48, 217, 121});
  Apply(ImageDesign{imgLogo, "imgLogo", BuiltIn::Logo, 8, 8, 96, 96});

  const Font title{"Arial Black", 18, 400, true};
  const Font version{"Arial", 9.75F};
  const Font disclaimer{"Arial", 6.75F};
  const Font text{"MS Sans Serif", 9.75F};
  const Font small{"MS Sans Serif", 8.25F, 700};
  const Font link{"MS Sans Serif", 9.75F, 400, true};
  const LabelDesign labels[] = {
      {lblTit, "lblTit", nullptr, kShown, "", red, title, 96, 0, 217, 33, center},
      {lblVersion, "lblVersion", nullptr, kShown, "", blue, version, 104, 32, 209, 16, center},
      {lblComments, "lblComments", &picCont, kShown, "", black, text, 8, 0, 198, 104, center, kFixed, kWrapped},
      {lblDisc, "lblDisc", nullptr, kShown,
       "Use this product at your own risk. Do not blame me if anything goes wrong. If you don't agree with this, then "
       "stop using this product.",
       red, disclaimer, 8, 104, 89, 89, Alignment::Left, kFixed, kWrapped},
      {lblCopyright, "lblCopyright", nullptr, kShown, "", black, small, 96, 176, 216, 13, center},
      {lblWeb, "lblWeb", nullptr, kShown, "", blue, link, 0, 195, 136, 16},
      {lblEmail, "lblEmail", nullptr, kShown, "", blue, text, 155, 195, 157, 16, Alignment::Right},
  };
  for (const LabelDesign& design : labels) Apply(design);
  imgLogo.AccessibleName = "Logo";
  lblComments.Transparent = false;
  lblComments.BackColor = yellow;
  lblDisc.ToolTipText = "Disclaimer";
  lblWeb.MousePointer = BuiltIn::LinkHandCursor;
  lblEmail.MousePointer = BuiltIn::LinkHandCursor;

  Place(Shape1, "Shape1", 0, 192, 313, 25);
  Shape1.FillColor = Rgb(255, 128, 0);
  Place(Line1, "Line1", 144, 192, 0, 24);

  Timer1.Name = "Timer1";
  Timer1.Interval = 200;
  Timer1.Enabled = true;
  tmrScroll.Name = "tmrScroll";
  tmrScroll.Interval = 50;
  tmrScroll.Enabled = true;

  // clang-format off
  Controls = {  // front to back
      &picCont, &lblDisc, &lblTit, &imgLogo, &Line1, &lblVersion, &lblEmail, &lblWeb, &lblCopyright, &Shape1,
      &lblComments, &Timer1, &tmrScroll};
  // clang-format on
}

}  // namespace sorvex
