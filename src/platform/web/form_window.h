// SPDX-License-Identifier: MIT
// A shown form on the page: its controls as elements, and the events that the page reports for it.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/form_controller.h"
#include "platform/input.h"
#include "platform/shown_value.h"
#include "platform/web/page.h"

namespace sorvex {

/// The element of one control: what the page was last told of it.
struct Element {
  int id;
  ShownValue<Rectangle> bounds;
  ShownValue<bool> visible;
  ShownValue<SurfaceLook> look;
  ShownValue<std::string> caption;
  ShownValue<std::string> toolTip;
  ShownValue<std::string> name;
  ShownValue<BuiltIn> picture;
  ShownValue<BuiltIn> cursor;
  ShownValue<Color> foreground;
  ShownValue<Font> font;
  ShownValue<std::vector<std::string>> list;
  ShownValue<int> selected;
};

class FormWindow final : private FormView {
 public:
  /// `id` is the window's number on the page; its controls' numbers follow it.
  FormWindow(int id, Form& form, bool modal, Desktop& desktop, HandlerRunner& runner);
  ~FormWindow() override;
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;

  FormController& Controller() { return controller_; }
  int Id() const { return id_; }
  /// The number of the control's element, 0 if it has never been shown.
  int ElementOf(const Control& control) const;
  void Handle(const PageEvent& event);
  void LosePointer();
  /// Shows those parts of the surface, in pixels of its drawing area.
  void Paint(const PictureBox& surface, std::span<const Rectangle> parts);

 private:
  const Control* FocusedControl() const override;
  void Focus(const Control* control) override;
  void MarkForEnter(const CommandButton* button) override;
  void SetCaption(const std::string& caption) override { PageSetCaption(id_, caption.c_str()); }
  void BackgroundChanged() override;
  void SetClientSize(Size client) override { PageSetSize(id_, client.width, client.height); }
  void ControlsChanged() override;
  bool SyncControls() override;
  /// Every wait asks the forms for the next timer itself.
  void SetTimer(std::optional<int> /*milliseconds*/) override {}

  Control* Find(int element) const;
  Element& Make(Control& control);
  void Sync(Control& control, Element& element);
  void SyncSurface(PictureBox& surface, Element& element);
  void SyncLabel(const Label& label, Element& element);
  void SyncImage(const Image& image, Element& element);
  void SyncList(const ListBox& list, Element& element);
  void HandlePointer(const PageEvent& event);
  void Click(Control& control);

  int id_;
  Form& form_;
  Desktop& desktop_;
  HandlerRunner& runner_;
  PointerInput pointer_{form_};
  std::unordered_map<const Control*, Element> elements_;
  std::unordered_map<int, Control*> controls_;
  std::vector<Pixel> swapped_;
  int lastElement_;
  FormController controller_{form_, desktop_, runner_, *this};
};

}  // namespace sorvex
