// SPDX-License-Identifier: MIT
// Label sizes, built-in pictures and system colors.
#include "platform/desktop_properties.h"

#include <string>
#include <string_view>
#include <utility>

#include "base/text.h"

namespace sorvex {
namespace {

// How many bytes of a single-line caption are measured: more than an entry field's 254 characters (at most 762 bytes),
// and wider than any window.
constexpr std::size_t kMostMeasured = 1024;

void SetDesignPicture(Desktop& desktop, PictureBox& surface) {
  const BuiltIn picture = surface.DesignPicture;
  surface.SetPicture(picture == BuiltIn::None ? nullptr : desktop.BuiltInPicture(picture));
}

}  // namespace

void ShowControl(Desktop& desktop, const Form& form, Control& control) {
  control.Visible = true;
  auto* surface = dynamic_cast<PictureBox*>(&control);
  if (surface != nullptr && !surface->PictureObject()) SetDesignPicture(desktop, *surface);
  for (Control* each : form.Controls) {
    auto* label = dynamic_cast<Label*>(each);
    if (label != nullptr && label->AutoSize && IsShown(*label)) label->FitToText(desktop);
  }
}

void Label::SetCaption(Desktop& desktop, std::string caption) {
  if (caption == Caption) return;
  Caption = std::move(caption);
  painted_.clear();
  if (AutoSize && IsShown(*this)) FitToText(desktop);
}

void Label::FitToText(Desktop& desktop) {
  const auto measure = [&](std::string_view text) {
    return desktop.MeasureText(Font, std::string(text), WordWrap ? ToPixels(Width) : 0);
  };
  const Size size = measure(WordWrap ? Caption : Utf8Prefix(Caption, kMostMeasured));
  if (!WordWrap) Width = static_cast<float>(size.width);
  Height = static_cast<float>(size.height);
  if (PaintedTo <= 0) return;
  const auto fits = [&](std::string_view text) {
    return text.find_first_of("\r\n") == text.npos && Left + static_cast<float>(measure(text).width) <= PaintedTo;
  };
  painted_ = FittingText(Caption, fits);
}

void PaintDesign(Desktop& desktop, Form& form) {
  for (Control* control : form.Controls) {
    auto* surface = dynamic_cast<PictureBox*>(control);
    if (surface == nullptr) continue;
    surface->Background = desktop.ResolveColor(surface->BackColor);
    if (IsShown(*surface) || surface->DesignPicture == BuiltIn::None) SetDesignPicture(desktop, *surface);
  }
}

}  // namespace sorvex
