// SPDX-License-Identifier: MIT
// The about box's handlers.
#include "ui/about_box.h"

#include <cstdio>

#include "platform/desktop_properties.h"

namespace sorvex {
namespace {

constexpr int kFollowInterval = 50;   // milliseconds between two moves of the dragged logo
constexpr int kReturnInterval = 200;  // milliseconds from its release until it is put back
constexpr float kLogoLeft = 8;
constexpr float kLogoTop = 8;
constexpr float kScrollStep = 0.5F;

std::string VersionText(const VersionInfo& version) {
  char text[64];
  std::snprintf(text, sizeof text, "%d.%02d.%04d", version.Major, version.Minor, version.Revision);
  return text;
}

void BindEvents(Desktop& desktop, frmAbout& form) {
  form.imgLogo.MouseDown = [&form](Integer button, Integer shift, float, float) {
    imgLogo_MouseDown(form, button, shift);
  };
  form.imgLogo.MouseUp = [&](Integer, Integer, float, float) { imgLogo_MouseUp(desktop, form); };
  form.lblEmail.Click = [&desktop] { desktop.OpenAddress("mailto:" + MakerEmailAddress()); };
  form.lblWeb.Click = [&desktop] { desktop.OpenAddress(MakerWebAddress()); };
  form.Timer1.Tick = [&] { Timer1_Timer(desktop, form); };
  form.tmrScroll.Tick = [&] { tmrScroll_Timer(desktop, form); };
}

}  // namespace

std::string MakerEmailAddress() { return "hello@sorvex.example"; }
std::string MakerWebAddress() { return "https://sorvex.example/"; }

void ShowAbout(Desktop& desktop, Form& owner) {
  frmAbout form(desktop.TwipsPerPixel());
  PaintDesign(desktop, form);
  BindEvents(desktop, form);
  FillAboutLabels(desktop, form);
  form.Timer1.Start(desktop.TickCount());
  form.tmrScroll.Start(desktop.TickCount());
  desktop.Show(form, &owner);
}

void FillAboutLabels(Desktop& desktop, frmAbout& form) {
  const VersionInfo version = desktop.Version();
  form.lblTit.SetCaption(desktop, version.Title);
  if (form.lblTit.Width > form.lblComments.Width) {
    form.lblTit.Left = 0;
    form.lblTit.Width = form.Width / desktop.TwipsPerPixel().across;
  }
  form.lblVersion.SetCaption(desktop, VersionText(version));
  form.lblComments.SetCaption(desktop, version.Comments);
  form.lblCopyright.SetCaption(desktop, version.LegalCopyright);
  form.lblEmail.SetCaption(desktop, MakerEmailAddress());
  form.lblWeb.SetCaption(desktop, MakerWebAddress());
  form.lblVersion.ForeColor = Rgb(0, 0, 255);
  form.lblCopyright.ForeColor = Rgb(80, 80, 255);
  form.picCont.BackColor = form.BackColor;
}

void imgLogo_MouseDown(frmAbout& form, Integer button, Integer shift) {
  if (button == kLeftButton && shift == kCtrlKey) form.LogoFollows = true;
}

void imgLogo_MouseUp(Desktop& desktop, frmAbout& form) {
  form.LogoFollows = false;
  form.Timer1.Interval = kReturnInterval;
  form.Timer1.Start(desktop.TickCount());
}

void Timer1_Timer(Desktop& desktop, frmAbout& form) {
  form.Timer1.Interval = kFollowInterval;
  if (!form.LogoFollows) {
    form.imgLogo.Left = kLogoLeft;
    form.imgLogo.Top = kLogoTop;
    return;
  }
  const ScreenPoint pointer = desktop.PointerPosition();
  const TwipRatio twips = desktop.TwipsPerPixel();
  // The pointer's position relative to the window's outer corner is used in client coordinates, so the logo's center is
  // offset from the pointer by the frame's size.
  const float x = static_cast<float>(pointer.x) - form.Left / twips.across;
  const float y = static_cast<float>(pointer.y) - form.Top / twips.down;
  form.imgLogo.Left = x - form.imgLogo.Width / 2;
  form.imgLogo.Top = y - form.imgLogo.Height / 2;
}

void tmrScroll_Timer(Desktop& desktop, frmAbout& form) {
  Label& comments = form.lblComments;
  comments.AutoSize = true;
  comments.FitToText(desktop);
  if (comments.Height <= form.picCont.Height) return;
  comments.Top -= kScrollStep;
  if (comments.Top <= -comments.Height) comments.Top = form.picCont.Height + 2;
}

}  // namespace sorvex
