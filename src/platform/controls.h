// SPDX-License-Identifier: MIT
// Forms and their controls as plain data. The game reads and sets properties and assigns event callbacks; a front end
// displays the properties and calls the events. Positions and sizes are pixels in the container's drawing area; a
// form's outer size is in twips.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/bitmap.h"
#include "base/numbers.h"
#include "base/runtime_error.h"
#include "platform/picture.h"

namespace sorvex {

class Desktop;
struct Form;

/// An RGB color, or a system color given by its Windows index (COLOR_...).
struct Color {
  std::uint32_t value = 0;  ///< 0x00RRGGBB, or kSystem | index
  static constexpr std::uint32_t kSystem = 0x80000000;

  constexpr bool IsSystem() const { return (value & kSystem) != 0; }
  constexpr int SystemIndex() const { return static_cast<int>(value & 0xFF); }
  constexpr bool operator==(const Color&) const = default;
};
constexpr Color Rgb(unsigned red, unsigned green, unsigned blue) { return {red << 16 | green << 8 | blue}; }
inline constexpr Color kWindowColor{Color::kSystem | 5};       ///< COLOR_WINDOW
inline constexpr Color kWindowTextColor{Color::kSystem | 8};   ///< COLOR_WINDOWTEXT
inline constexpr Color kButtonFaceColor{Color::kSystem | 15};  ///< COLOR_BTNFACE

struct Font {
  std::string family;
  float points = 0;  ///< 0.75 points are one pixel at every resolution
  int weight = 400;  ///< 100 to 900
  bool underlined = false;
  bool operator==(const Font&) const = default;
};

enum class Alignment { Left, Center, Right };

/// A picture surface's frame: none, flat and 1 pixel wide, or sunken and 2 pixels wide.
enum class Frame { None, Flat, Sunken };
constexpr int FrameWidth(Frame frame) { return static_cast<int>(frame); }

/// Rounds to whole pixels, halves to even.
inline int ToPixels(float value) {
  const int whole = static_cast<int>(value);
  return static_cast<float>(whole) == value ? whole : static_cast<int>(RoundHalfEven(value));
}

/// Mouse buttons and shift state, as the events pass them.
inline constexpr Integer kLeftButton = 1;
inline constexpr Integer kRightButton = 2;
inline constexpr Integer kMiddleButton = 4;
inline constexpr Integer kShiftKey = 1;
inline constexpr Integer kCtrlKey = 2;
inline constexpr Integer kAltKey = 4;

using Event = std::function<void()>;
/// `button` is the pressed or released button, in a move the sum of all that are down; `shift` is the sum of the
/// modifier keys; (x, y) is the pointer in pixels of the control's drawing area.
using PointerEvent = std::function<void(Integer button, Integer shift, float x, float y)>;

struct PictureBox;

struct Control {
  virtual ~Control() = default;

  std::string Name;
  int Index = -1;                   ///< index in its control array, -1: not in an array
  PictureBox* Container = nullptr;  ///< the surface that contains it; null: the form itself
  float Left = 0;
  float Top = 0;
  float Width = 0;
  float Height = 0;
  bool Visible = true;
  std::string ToolTipText;
  std::string AccessibleName;  ///< its name for assistive technology, if its text or tool tip does not suffice
  int TabIndex = -1;           ///< position in the tab order, -1: takes no focus
  BuiltIn MousePointer = BuiltIn::None;

 protected:
  Control() = default;
  Control(const Control&) = default;
  Control& operator=(const Control&) = default;
};

/// A picture surface: a drawing area in a frame. With AutoRedraw it has a persistent image.
struct PictureBox : Control {
  Frame BorderStyle = Frame::Sunken;
  bool AutoSize = false;
  bool AutoRedraw = true;
  Color BackColor = kButtonFaceColor;
  Color ForeColor = kWindowTextColor;
  BuiltIn DesignPicture = BuiltIn::None;

  PointerEvent MouseDown;
  PointerEvent MouseMove;
  PointerEvent MouseUp;
  Event Paint;  ///< without AutoRedraw: called before the surface is painted

  /// The drawing area's size: the outer size minus the frame, in whole pixels.
  Size ScaleSize() const {
    const Size outer = OuterSize();
    const int frame = 2 * FrameWidth(BorderStyle);
    return {std::max(0, outer.width - frame), std::max(0, outer.height - frame)};
  }
  float ScaleWidth() const { return static_cast<float>(ScaleSize().width); }
  float ScaleHeight() const { return static_cast<float>(ScaleSize().height); }
  /// The outer size, frame included, in whole pixels.
  Size OuterSize() const { return {ToPixels(Width), ToPixels(Height)}; }

  const Picture& PictureObject() const { return picture_; }
  /// Sets the picture (null: none). An auto-size surface takes its size; the image becomes the picture at (0, 0) on the
  /// background color.
  void SetPicture(Picture picture);
  /// Sets the outer size in pixels. The image keeps its content; new area shows the background color, or more of the
  /// picture if nothing has been drawn on it.
  void Resize(float width, float height);

  /// The persistent image, as large as the drawing area.
  const Bitmap& Image() const { return picture_ && !materialized_ ? picture_->Pixels() : own_; }
  /// The persistent image for writing. Copies the picture's shared pixels first (copy on write).
  Bitmap& Drawing();
  /// A counter that is incremented whenever the image may have changed.
  unsigned Revision() const { return revision_; }

  /// BackColor as a pixel value of this desktop; set by PaintDesign.
  Pixel Background = kWhite;

 private:
  void Materialize();

  Picture picture_;
  Bitmap own_;
  bool materialized_ = true;  // the image is own_, not the picture
  bool drawnOn_ = false;
  unsigned revision_ = 0;
};

struct Label : Control {
  std::string Caption;
  Color ForeColor = kWindowTextColor;
  Color BackColor = kButtonFaceColor;
  bool Transparent = true;
  bool AutoSize = true;
  bool WordWrap = false;
  Alignment Align = Alignment::Left;
  sorvex::Font Font;
  float PaintedTo = 0;  ///< above 0: painted as one line, cut off before this x position in the container
  Event Click;

  /// Sets the caption; an auto-size label is resized to its text, its top-left corner stays. For a hidden label this is
  /// deferred to ShowControl, because measuring text loads the font.
  void SetCaption(Desktop& desktop, std::string caption);
  /// Resizes the label to its text (with word wrap: its height only) and updates PaintedText.
  void FitToText(Desktop& desktop);
  /// The part of the caption that is painted, with an ellipsis if it was cut.
  const std::string& PaintedText() const { return painted_.empty() ? Caption : painted_; }

 private:
  std::string painted_;  // empty: the whole caption
};

struct CommandButton : Control {
  std::string Caption;   ///< "&" precedes the access key
  bool Default = false;  ///< Enter activates it unless another button has the focus
  bool Cancel = false;   ///< Esc activates it
  Event Click;
};

/// An image's action for keyboard and assistive technology.
struct Command {
  std::string Name;
  int FunctionKey = 0;  ///< 1: F1, ...
  Event Action;
};

/// An icon or picture drawn on its container, stretched to the control.
struct Image : Control {
  BuiltIn Picture = BuiltIn::None;
  Event Click;
  PointerEvent MouseDown;
  PointerEvent MouseUp;
  std::vector<Command> Commands;
};

struct Timer : Control {
  int Interval = 0;  ///< milliseconds
  bool Enabled = false;
  Long Started = 0;  ///< tick count at which the interval started
  Event Tick;

  /// Enables the timer, or restarts it if it is enabled; its interval starts at `now` (a tick count).
  void Start(Long now) {
    Enabled = true;
    Started = now;
  }
};

struct ListBox : Control {
  std::vector<std::string> List;
  int ListIndex = -1;  ///< the selected entry, -1: none
  Event DoubleClick;
};

struct Line : Control {};  ///< black, from (Left, Top) to (Left + Width, Top + Height)

struct Shape : Control {
  Color FillColor;
};

/// A window's border style, which determines by how many pixels its outer size exceeds its client area.
enum class FormBorder { Sizable, FixedDialog, FixedToolWindow };
struct FrameMetrics {
  int side;  ///< left, right and bottom, pixels
  int top;   ///< including the caption, pixels
};
constexpr FrameMetrics MetricsOf(FormBorder border) {
  switch (border) {
    case FormBorder::Sizable: return {4, 23};
    case FormBorder::FixedDialog: return {3, 22};
    case FormBorder::FixedToolWindow: return {3, 19};
  }
  return {0, 0};
}

struct Form {
  Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  virtual ~Form() = default;

  std::string Name;
  std::string Caption;
  Color BackColor = kButtonFaceColor;
  FormBorder Border = FormBorder::Sizable;
  bool MinButton = false;
  bool CenterOnOwner = false;
  BuiltIn Icon = BuiltIn::None;
  float Left = 0;       ///< outer left edge on the screen, twips; kept by the front end
  float Top = 0;        ///< outer top edge on the screen, twips; kept by the front end
  float Width = 0;      ///< outer width, twips
  float Height = 0;     ///< outer height, twips
  bool Loaded = false;  ///< the form is shown while this is set; clearing it closes the form

  Event Unload;  ///< called before the form closes by its close box or at session end; may be null

  /// Every existing control, front to back.
  std::vector<Control*> Controls;
};

/// Twips (1/1440 inch) per pixel, horizontally and vertically: 15 at 96 dots per inch.
struct TwipRatio {
  float across = 15;
  float down = 15;
};

/// The client area's size in pixels, computed from the form's outer size in twips. A sizable form's is at least wide
/// enough for its visible buttons and images.
Size ClientSize(const Form& form, TwipRatio twipsPerPixel);
/// Sets the form's outer size in twips so that its client area is `client` (pixels).
void SetClientSize(Form& form, Size client, TwipRatio twipsPerPixel);

/// The control's rectangle in its container, in whole pixels.
Rectangle PixelBounds(const Control& control);

/// Controls that share a name, with indices from 0. Element 0 is part of the design; others are copies of it.
template <class T>
class ControlArray {
 public:
  explicit ControlArray(Form& form) : form_(form) { elements_.push_back(std::make_unique<T>()); }

  /// Element `index`; throws NoSuchElement (340) if it does not exist.
  T& operator()(int index) const {
    if (index < 0 || index >= Count()) throw NoSuchElement(index);
    return *elements_[static_cast<std::size_t>(index)];
  }
  int Count() const { return static_cast<int>(elements_.size()); }

  /// Creates element `index`, which must be Count(), as a hidden copy of element 0; else throws NoSuchElement (340).
  T& Load(int index);
  /// Removes element `index`, which must be the last and not element 0; else throws NoSuchElement (340).
  void Unload(int index);

 private:
  Form& form_;
  std::vector<std::unique_ptr<T>> elements_;
};

template <class T>
T& ControlArray<T>::Load(int index) {
  if (index != Count()) throw NoSuchElement(index);
  auto element = std::make_unique<T>(*elements_.front());
  element->Index = index;
  element->Visible = false;
  form_.Controls.push_back(element.get());
  elements_.push_back(std::move(element));
  return *elements_.back();
}

template <class T>
void ControlArray<T>::Unload(int index) {
  if (index <= 0 || index != Count() - 1) throw NoSuchElement(index);
  std::erase(form_.Controls, elements_.back().get());
  elements_.pop_back();
}

/// True if the control and its containers are visible.
bool IsShown(const Control& control);

}  // namespace sorvex
