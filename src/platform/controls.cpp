// SPDX-License-Identifier: MIT
// Front-end independent effects of setting properties: auto-size, persistent images, frames, rounding to pixels.
#include "platform/controls.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace sorvex {

bool IsShown(const Control& control) {
  return control.Visible && (control.Container == nullptr || IsShown(*control.Container));
}

void PictureBox::SetPicture(Picture picture) {
  ++revision_;
  picture_ = std::move(picture);
  if (picture_ && AutoSize) {
    const int frame = 2 * FrameWidth(BorderStyle);
    Width = static_cast<float>(picture_->Pixels().Width() + frame);
    Height = static_cast<float>(picture_->Pixels().Height() + frame);
  }
  drawnOn_ = false;
  materialized_ = !picture_ || picture_->Pixels().Extent() != ScaleSize();
  if (materialized_) Materialize();
}

void PictureBox::Resize(float width, float height) {
  const Size before = ScaleSize();
  Width = width;
  Height = height;
  if (ScaleSize() == before) return;
  ++revision_;
  if (!drawnOn_) return Materialize();
  Bitmap resized(ScaleSize(), Background);
  CopySurface(resized, Image(), resized.Bounds());
  own_ = std::move(resized);
}

Bitmap& PictureBox::Drawing() {
  ++revision_;
  if (!materialized_) Materialize();
  drawnOn_ = true;
  return own_;
}

void PictureBox::Materialize() {
  own_ = Bitmap(ScaleSize(), Background);
  if (picture_) CopySurface(own_, picture_->Pixels(), own_.Bounds());
  materialized_ = true;
}

Size ClientSize(const Form& form, TwipRatio twipsPerPixel) {
  const FrameMetrics frame = MetricsOf(form.Border);
  const int width = ToPixels(form.Width / twipsPerPixel.across);
  const int height = ToPixels(form.Height / twipsPerPixel.down);
  Size client{std::max(0, width - 2 * frame.side), std::max(0, height - frame.top - frame.side)};
  if (form.Border != FormBorder::Sizable) return client;
  for (const Control* control : form.Controls) {
    const bool reached =
        dynamic_cast<const CommandButton*>(control) != nullptr || dynamic_cast<const Image*>(control) != nullptr;
    if (reached && control->Container == nullptr && control->Visible)
      client.width = std::max(client.width, PixelBounds(*control).right);
  }
  return client;
}

void SetClientSize(Form& form, Size client, TwipRatio twipsPerPixel) {
  const FrameMetrics frame = MetricsOf(form.Border);
  form.Width = static_cast<float>(client.width + 2 * frame.side) * twipsPerPixel.across;
  form.Height = static_cast<float>(client.height + frame.top + frame.side) * twipsPerPixel.down;
}

Rectangle PixelBounds(const Control& control) {
  return Rectangle::At(ToPixels(control.Left), ToPixels(control.Top),
                       {ToPixels(control.Width), ToPixels(control.Height)});
}

}  // namespace sorvex
