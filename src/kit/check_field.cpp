// SPDX-License-Identifier: MIT
// The field's size against the window that the game lays out around it.
#include "forms/main_window.h"
#include "kit/check.h"
#include "ui/main_window_commands.h"

namespace sorvex {
namespace {

constexpr Size kLargestField{1366, 700};

// The main window around a field.
class Window {
 public:
  explicit Window(Size field) {
    const int frame = 2 * FrameWidth(form_.PicCanvas.BorderStyle);
    form_.PicCanvas.Width = static_cast<float>(field.width + frame);
    form_.PicCanvas.Height = static_cast<float>(field.height + frame);
    LayOut(form_, TwipRatio{});
  }

  bool CoversFolder() const { return !Intersection(PixelBounds(form_.PicCanvas), PixelBounds(form_.Image2)).Empty(); }
  bool EndsBeforeFolder() const { return PixelBounds(form_.Image2).bottom > ClientSize(form_, TwipRatio{}).height; }
  bool ButtonsOverlap() const { return PixelBounds(form_.imgAbout).right > PixelBounds(form_.cmdShowHighscores).left; }

 private:
  frmMain form_;
};

void Warn(Findings& findings, std::string_view code, const std::string& message) {
  findings.push_back({Severity::Warning, code, "bg.bmp", 0, std::nullopt, message});
}

}  // namespace

void CheckField(const Theme& theme, Findings& findings) {
  if (!theme.background) return;
  const Size field = theme.background->Pixels().Extent();
  const auto good = [&](Size best, int Size::*side, int step, bool (Window::*isBad)() const) {
    while ((Window(best).*isBad)()) best.*side += step;
    return std::to_string(best.*side) + " pixels";
  };
  const std::string height = std::to_string(field.height) + " pixels high: ";
  if (Window(field).CoversFolder())
    Warn(findings, "field-too-high",
         height + "it covers the folder image, by which another theme is chosen; at most " +
             good({field.width, 300}, &Size::height, -1, &Window::CoversFolder) + " leave it visible");
  if (Window(field).EndsBeforeFolder())
    Warn(findings, "field-too-low",
         height + "the folder image, by which another theme is chosen, is cut off; at least " +
             good(field, &Size::height, 1, &Window::EndsBeforeFolder) + " show it");
  if (Window(field).ButtonsOverlap())
    Warn(findings, "field-too-narrow",
         std::to_string(field.width) + " pixels wide: the buttons below it overlap; they need " +
             good(field, &Size::width, 1, &Window::ButtonsOverlap));
  if (field.width > kLargestField.width || field.height > kLargestField.height)
    Warn(findings, "field-too-large",
         std::to_string(field.width) + " x " + std::to_string(field.height) + " pixels; more than " +
             std::to_string(kLargestField.width) + " x " + std::to_string(kLargestField.height) +
             " do not fit small screens");
}

}  // namespace sorvex
