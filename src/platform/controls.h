// SPDX-License-Identifier: MIT
// Forms and their controls as data. The game reads and sets the properties and is called through the event slots; a
// front end shows what they say. Positions and sizes are pixels inside the container (a form's own outer size: twips).
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

/// An RGB colour, or a colour of the desktop named by its Windows index (COLOR_...).
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
  float points = 0;  ///< at 96 dots per inch, 0.75 points are one pixel
  int weight = 400;  ///< 100 to 900
  bool underlined = false;
  bool operator==(const Font&) const = default;
};

enum class Alignment { Left, Center, Right };

/// A picture surface's frame: none, flat and 1 pixel wide, or sunken and 2 pixels wide.
enum class Frame { None, Flat, Sunken };
constexpr int FrameWidth(Frame frame) { return static_cast<int>(frame); }

/// Whole pixels, halves to even.
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
/// Button (in a movement: all that are down), shift state, and the place in the control's pixels.
using PointerEvent = std::function<void(Integer button, Integer shift, float x, float y)>;

struct PictureBox;

struct Control {
  virtual ~Control() = default;

  std::string Name;
  int Index = -1;                   ///< place in its control array, -1 outside one
  PictureBox* Container = nullptr;  ///< the surface it stands on; null: the form itself
  float Left = 0;
  float Top = 0;
  float Width = 0;
  float Height = 0;
  bool Visible = true;
  std::string ToolTipText;
  std::string AccessibleName;  ///< what assistive technology calls it, where its text or tool tip is not enough
  int TabIndex = -1;           ///< place in the tab order, -1: takes no focus
  BuiltIn MousePointer = BuiltIn::None;

 protected:
  Control() = default;
  Control(const Control&) = default;
  Control& operator=(const Control&) = default;
};

/// A picture surface: a frame around a drawing area, with a persistent image where AutoRedraw is set.
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
  Event Paint;  ///< without AutoRedraw: the surface is about to be painted

  /// The drawing area: the outer size less the frame, in whole pixels.
  Size ScaleSize() const {
    const Size outer = OuterSize();
    const int frame = 2 * FrameWidth(BorderStyle);
    return {std::max(0, outer.width - frame), std::max(0, outer.height - frame)};
  }
  float ScaleWidth() const { return static_cast<float>(ScaleSize().width); }
  float ScaleHeight() const { return static_cast<float>(ScaleSize().height); }
  /// The outer size in whole pixels: what a copy that names this surface spans.
  Size OuterSize() const { return {ToPixels(Width), ToPixels(Height)}; }

  const Picture& PictureObject() const { return picture_; }
  /// Gives the surface `picture` (null: none): an auto-size surface takes its size; the image becomes the picture at
  /// (0, 0) on the background colour.
  void SetPicture(Picture picture);
  /// Sets the outer size. A persistent image keeps what it holds, new area shows the background colour.
  void Resize(float width, float height);

  /// The persistent image, as large as the drawing area.
  const Bitmap& Image() const { return picture_ && !drawn_ ? picture_->Pixels() : own_; }
  /// The same for drawing; from then on the image is the surface's own and no longer its picture's.
  Bitmap& Drawing();
  /// Changes whenever the image may have changed.
  unsigned Revision() const { return revision_; }

  /// What BackColor is on this desktop; set by PaintDesign.
  Pixel Background = kWhite;

 private:
  void Materialize();

  Picture picture_;
  Bitmap own_;
  bool drawn_ = true;  // the image is own_, not the picture
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
  float PaintedTo = 0;  ///< above 0: what is painted is one line and ends before this place of the container
  Event Click;

  /// Sets the caption; an auto-size label takes its text's size, its top-left corner stays. One that is not shown does
  /// so in ShowControl: measuring its text would load its font.
  void SetCaption(Desktop& desktop, std::string caption);
  /// Makes the label as large as its text: as high at the width it has where it wraps words. Finds out what of it is
  /// painted.
  void FitToText(Desktop& desktop);
  /// What is painted of the caption.
  const std::string& PaintedText() const { return painted_.empty() ? Caption : painted_; }

 private:
  std::string painted_;  // empty: the whole caption
};

struct CommandButton : Control {
  std::string Caption;   ///< with "&" before the access key
  bool Default = false;  ///< Enter activates it unless another button has the focus
  bool Cancel = false;   ///< Esc activates it
  Event Click;
};

/// Something an image does, for those who use no pointer.
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
  Long Started = 0;  ///< tick count from which the interval runs
  Event Tick;

  /// Enables the timer; its interval runs from `now` (a tick count), also when it was enabled already.
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

/// A window's frame: how far its outer size exceeds its client area, in the classic metrics.
enum class FormBorder { Sizable, FixedDialog, FixedToolWindow };
struct FrameMetrics {
  int side;  ///< at the left, at the right and below
  int top;   ///< caption included
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
  bool Loaded = false;  ///< shown while set; a handler closes the form by clearing it

  Event Unload;  ///< the close box was used, or the session ends; null: the form just closes

  /// Every control that exists, front to back.
  std::vector<Control*> Controls;
};

/// Twips (1/1440 inch) a pixel, across and down: 15 at 96 dots per inch.
struct TwipRatio {
  float across = 15;
  float down = 15;
};

/// The client area to show, in pixels: what follows from the outer size in twips; in a sizable form at least as wide as
/// its shown buttons and images reach.
Size ClientSize(const Form& form, TwipRatio twipsPerPixel);
/// Sets the outer size in twips so that the client area has `client` pixels.
void SetClientSize(Form& form, Size client, TwipRatio twipsPerPixel);

/// The control's rectangle in its container, in whole pixels.
Rectangle PixelBounds(const Control& control);

/// Controls that share a name and count from 0. Element 0 is part of the design; others are copies of it.
template <class T>
class ControlArray {
 public:
  explicit ControlArray(Form& form) : form_(form) { elements_.push_back(std::make_unique<T>()); }

  /// Element `index`; throws RuntimeError 340 when it does not exist.
  T& operator()(int index) const {
    if (index < 0 || index >= Count()) throw NoSuchElement(index);
    return *elements_[static_cast<std::size_t>(index)];
  }
  int Count() const { return static_cast<int>(elements_.size()); }

  /// Creates the next element, `index`, as a hidden copy of element 0.
  T& Load(int index);
  /// Removes the last element, `index`; element 0 stays.
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

/// True when the control and all that it stands on are visible.
bool IsShown(const Control& control);

}  // namespace sorvex
