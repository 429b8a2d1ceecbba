// SPDX-License-Identifier: MIT
// Applies rows of the design tables to their controls.
#include "forms/design.h"

namespace sorvex {

void Place(Control& control, const char* name, float left, float top, float width, float height) {
  control.Name = name;
  control.Left = left;
  control.Top = top;
  control.Width = width;
  control.Height = height;
}

void Apply(const SurfaceDesign& design) {
  PictureBox& surface = design.surface;
  Place(surface, design.name, design.left, design.top, design.width, design.height);
  surface.Visible = design.visible;
  surface.BorderStyle = design.frame;
  surface.AutoSize = design.autoSize;
  surface.AutoRedraw = design.autoRedraw;
  surface.BackColor = design.background;
  surface.DesignPicture = design.picture;
}

void Apply(const LabelDesign& design) {
  Label& label = design.label;
  Place(label, design.name, design.left, design.top, design.width, design.height);
  label.Container = design.container;
  label.Visible = design.visible;
  label.Caption = design.caption;
  label.ForeColor = design.color;
  label.Font = design.font;
  label.Align = design.alignment;
  label.AutoSize = design.autoSize;
  label.WordWrap = design.wordWrap;
}

void Apply(const ButtonDesign& design) {
  CommandButton& button = design.button;
  Place(button, design.name, design.left, design.top, design.width, design.height);
  button.Container = design.container;
  button.Caption = design.caption;
  button.Default = design.role == ButtonRole::Default;
  button.Cancel = design.role == ButtonRole::Cancel;
  button.TabIndex = design.tabIndex;
  button.ToolTipText = design.toolTip;
}

void Apply(const ImageDesign& design) {
  Image& image = design.image;
  Place(image, design.name, design.left, design.top, design.width, design.height);
  image.Picture = design.picture;
  image.MousePointer = design.pointer;
  image.ToolTipText = design.toolTip;
}

}  // namespace sorvex
