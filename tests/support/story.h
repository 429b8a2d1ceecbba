// SPDX-License-Identifier: MIT
// A story played without a window: what the player does is queued, one delivery of events each, then run.
#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "platform/headless/headless_desktop.h"
#include "platform/input.h"
#include "startup/program.h"
#include "support/field_painter.h"
#include "support/printers.h"
#include "support/temp_folder.h"
#include "support/theme_folder.h"

namespace sorvex {

inline void PrintTo(const HeadlessDesktop::Box& box, std::ostream* out) {
  *out << "[" << box.title << "] " << box.text << " (icon " << static_cast<int>(box.icon) << ")";
}

class Story {
 public:
  /// Writes the themes, starts the program up and stops before its window is shown.
  explicit Story(const std::vector<TestTheme>& themes = {CupTheme(3)});

  // Each queues one delivery.
  Story& Then(std::function<void()> what);
  Story& Move(float x, float y);
  Story& Press(float x, float y);
  Story& Release();
  Story& Wait(Long milliseconds);
  Story& Frames(int count);

  // Each queues a few.
  /// A click on Start and the delivery that ends the theme's loading: what follows comes from the first frame on.
  Story& Start();
  /// A press, and the movement on the spot that makes an item with an opaque pixel there follow.
  Story& Grab(float x, float y);
  /// Takes item 0, at rest in its cup, out of it: it is held at (33, -2).
  Story& TakeOut();
  /// Takes item `i`, at rest in its cup, out of it and to the target.
  Story& PutIn(int i);

  enum class End { ScriptEnded, ProgramEnded };
  /// Shows the window and plays what was queued. A game that is not over by then is left where it stands.
  End Run();

  std::filesystem::path ThemeFile(const std::string& name, const std::string& theme = "Theme1") const;
  /// The play field as it was shown last.
  const Bitmap& Field() const { return form.PicCanvas.Image(); }
  /// What it must show, by raster operations alone.
  Bitmap Painted(const std::vector<Placed>& items, std::optional<Placed> container) const;
  /// The file names, without ".wav", of the sounds so far.
  std::vector<std::string> Sounds() const;
  /// Ten rows of the panel as "name|date|time".
  std::vector<std::string> Rows() const;

  TempFolder folder;
  HeadlessDesktop desktop;
  Program program{desktop};
  frmMain& form = program.form;
  modVariables& state = program.state;
  PointerInput pointer{form};
};

}  // namespace sorvex
