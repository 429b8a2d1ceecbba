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

Story::Story(const std::vector<TestTheme>& themes)
    : desktop(WriteThemes(folder, themes), (folder.Path() / "registry.reg").string()),
      program(desktop),
      form(program.form),
      state(program.state),
      pointer(form) {
  program.Initialize();
}

Story& Story::Then(std::function<void()> what) {
  desktop.Script.push_back(std::move(what));
  return *this;
}

Story& Story::Hover(int x, int y) { return Drag(x, y); }

Story& Story::Press(int x, int y, Integer button) {
  return Then([=, this] { pointer.Press(&form.PicCanvas, button, 0, static_cast<float>(x), static_cast<float>(y)); });
}

Story& Story::Drag(int x, int y) {
  return Then([=, this] { pointer.Move(&form.PicCanvas, 0, static_cast<float>(x), static_cast<float>(y)); });
}

Story& Story::Release(Integer button) {
  return Then([=, this] { pointer.Release(button, 0, 0, 0); });
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

Story& Story::Grab(int x, int y) { return Press(x, y).Drag(x, y); }

Story& Story::PutIn(const TestTheme& theme, int i) {
  const TestItem& item = theme.items[static_cast<std::size_t>(i)];
  const int x = item.RestX() + 7;
  const int y = item.RestY() + 6;
  return Hover(x, y)
      .Grab(x, y)
      .Drag(x + 2, item.contY - 20)
      .Drag(theme.targetX + theme.target.width / 2, theme.targetY + theme.target.height / 2)
      .Release();
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
