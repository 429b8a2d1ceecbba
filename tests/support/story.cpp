// SPDX-License-Identifier: MIT
// Queuing and playing a story.
#include "support/story.h"

#include <utility>

namespace sorvex {
namespace {

std::string WriteThemes(const TempFolder& folder, const std::vector<TestTheme>& themes) {
  for (const TestTheme& theme : themes) WriteTheme(folder.Path() / "program", theme);
  return (folder.Path() / "program").string();
}

}  // namespace

Story::Story(const std::vector<TestTheme>& themes) : desktop(WriteThemes(folder, themes)) { program.Initialize(); }

Story& Story::Then(std::function<void()> what) {
  desktop.Script.push_back(std::move(what));
  return *this;
}

Story& Story::Move(float x, float y) {
  return Then([=, this] { pointer.Move(&form.PicCanvas, 0, x, y); });
}

Story& Story::Press(float x, float y) {
  return Then([=, this] { pointer.Press(&form.PicCanvas, kLeftButton, 0, x, y); });
}

Story& Story::Release() {
  return Then([this] { pointer.Release(kLeftButton, 0, 0, 0); });
}

Story& Story::Wait(Long milliseconds) {
  return Then([=, this] { desktop.Now += milliseconds; });
}

Story& Story::Frames(int count) {
  for (int i = 0; i < count; ++i) Then([] {});
  return *this;
}

Story& Story::Start() {
  return Then([this] { form.Command1.Click(); }).Frames(1);
}

Story& Story::Grab(float x, float y) { return Press(x, y).Move(x, y); }

Story& Story::TakeOut() { return Move(30, 30).Grab(32, 70).Move(40, 5); }

Story& Story::PutIn(int i) {
  const float x = static_cast<float>(32 + 60 * i);
  return Move(x, 69).Grab(x, 69).Move(x + 2, 0).Move(270, 195).Release();
}

Story::End Story::Run() {
  try {
    desktop.Show(form, nullptr);
  } catch (const ScriptEnded&) {
    return End::ScriptEnded;
  } catch (const ProgramEnded&) {
  }
  return End::ProgramEnded;
}

std::filesystem::path Story::ThemeFile(const std::string& name, const std::string& theme) const {
  return folder.Path() / "program" / theme / name;
}

Bitmap Story::Painted(const std::vector<Placed>& items, std::optional<Placed> container) const {
  return FieldPainter(ThemeFile(""), TestTheme().targetX, TestTheme().targetY).Paint(items, container);
}

std::vector<std::string> Story::Sounds() const {
  std::vector<std::string> names;
  for (const HeadlessDesktop::Wave& wave : desktop.Waves)
    names.push_back(std::filesystem::path(wave.path).stem().string());
  return names;
}

std::vector<std::string> Story::Rows() const {
  std::vector<std::string> rows;
  for (int i = 0; i < 10; ++i)
    rows.push_back(form.lblHighName(i).Caption + "|" + form.lblHighDate(i).Caption + "|" + form.lblHighTime(i).Caption);
  return rows;
}

}  // namespace sorvex
