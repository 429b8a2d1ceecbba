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
  explicit Story(const std::vector<TestTheme>& themes = {CupTheme(3)}) {
    for (const TestTheme& theme : themes) WriteTheme(folder.Path() / "program", theme);
    program.Initialize();
  }

  // Each queues one delivery.
  Story& Then(std::function<void()> what) {
    desktop.Script.push_back(std::move(what));
    return *this;
  }
  Story& Move(float x, float y) {
    return Then([=, this] { pointer.Move(&form.PicCanvas, 0, x, y); });
  }
  Story& Press(float x, float y) {
    return Then([=, this] { pointer.Press(&form.PicCanvas, kLeftButton, 0, x, y); });
  }
  Story& Release() {
    return Then([this] { pointer.Release(kLeftButton, 0, 0, 0); });
  }
  Story& Wait(Long milliseconds) {
    return Then([=, this] { desktop.Now += milliseconds; });
  }
  Story& Frames(int count) {
    for (int i = 0; i < count; ++i) Then([] {});
    return *this;
  }

  // Each queues a few.
  /// A click on Start and the delivery that ends the theme's loading: what follows comes from the first frame on.
  Story& Start() {
    return Then([this] { form.Command1.Click(); }).Frames(1);
  }
  /// A press, and the movement on the spot that makes an item with an opaque pixel there follow.
  Story& Grab(float x, float y) { return Press(x, y).Move(x, y); }
  /// Takes item `i`, at rest in its cup, out of it and to the target.
  Story& PutIn(int i) {
    const float x = static_cast<float>(32 + 60 * i);
    return Move(x, 69).Grab(x, 69).Move(x + 2, 0).Move(270, 195).Release();
  }

  enum class End { ScriptEnded, ProgramEnded };
  /// Shows the window and plays what was queued. A game that is not over by then is left where it stands.
  End Run() {
    try {
      desktop.Show(form, nullptr);
    } catch (const ScriptEnded&) {
      return End::ScriptEnded;
    } catch (const ProgramEnded&) {
    }
    return End::ProgramEnded;
  }

  std::filesystem::path ThemeFile(const std::string& name, const std::string& theme = "Theme1") const {
    return folder.Path() / "program" / theme / name;
  }
  /// The play field as it was shown last.
  const Bitmap& Field() const { return form.PicCanvas.Image(); }
  /// The file names, without ".wav", of the sounds so far.
  std::vector<std::string> Sounds() const {
    std::vector<std::string> names;
    for (const HeadlessDesktop::Wave& wave : desktop.Waves)
      names.push_back(std::filesystem::path(wave.path).stem().string());
    return names;
  }
  /// Ten rows of the panel as "name|date|time".
  std::vector<std::string> Rows() const {
    std::vector<std::string> rows;
    for (int i = 0; i < 10; ++i)
      rows.push_back(form.lblHighName(i).Caption + "|" + form.lblHighDate(i).Caption + "|" +
                     form.lblHighTime(i).Caption);
    return rows;
  }

  TempFolder folder;
  HeadlessDesktop desktop{(folder.Path() / "program").string()};
  Program program{desktop};
  frmMain& form = program.form;
  modVariables& state = program.state;
  PointerInput pointer{form};
};

}  // namespace sorvex
