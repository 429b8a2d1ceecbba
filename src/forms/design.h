// SPDX-License-Identifier: MIT
// Row types of the windows' design tables, and how a row is applied to its control.
#pragma once

#include "platform/controls.h"

namespace sorvex {

inline constexpr bool kAutoSize = true;
inline constexpr bool kFixed = false;
inline constexpr bool kPersistent = true;
inline constexpr bool kTransient = false;
inline constexpr bool kShown = true;
inline constexpr bool kHidden = false;
inline constexpr bool kWrapped = true;
inline constexpr bool kOneLine = false;

struct SurfaceDesign {
  PictureBox& surface;
  const char* name;
  bool visible;
  Frame frame;
  bool autoSize;
  bool autoRedraw;
  Color background;
  float left, top, width, height;
  BuiltIn picture = BuiltIn::None;
};

struct LabelDesign {
  Label& label;
  const char* name;
  PictureBox* container;
  bool visible;
  const char* caption;
  Color color;
  Font font;
  float left, top, width, height;
  Alignment alignment = Alignment::Left;
  bool autoSize = kAutoSize;
  bool wordWrap = kOneLine;
};

/// Plain, activated by Enter (Default) or by Esc (Cancel).
enum class ButtonRole { Plain, Default, Cancel };

struct ButtonDesign {
  CommandButton& button;
  const char* name;
  PictureBox* container;
  const char* caption;
  ButtonRole role;
  int tabIndex;
  float left, top, width, height;
  const char* toolTip = "";
};

struct ImageDesign {
  Image& image;
  const char* name;
  BuiltIn picture;
  float left, top, width, height;
  BuiltIn pointer = BuiltIn::None;
  const char* toolTip = "";
};

/// Names the control and sets its bounds: pixels in its container.
void Place(Control& control, const char* name, float left, float top, float width, float height);
void Apply(const SurfaceDesign& design);
void Apply(const LabelDesign& design);
void Apply(const ButtonDesign& design);
void Apply(const ImageDesign& design);

}  // namespace sorvex
