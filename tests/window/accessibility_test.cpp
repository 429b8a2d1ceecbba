// SPDX-License-Identifier: MIT
// What assistive technology reads and presses, and the text of every box at the start.
#include <atspi/atspi.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

#include "window/sitting.h"

namespace sorvex {
namespace {

struct Dropped {
  void operator()(void* object) const { ::g_object_unref(object); }
};
using Object = std::unique_ptr<AtspiAccessible, Dropped>;

std::string Text(char* text) {
  std::string copy = text == nullptr ? "" : text;
  ::g_free(text);
  std::erase(copy, '\r');
  return copy;
}

// A screen reader's view of the program.
class Reader {
 public:
  explicit Reader(Sitting& sitting)
      : bus_({"dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address=3"}, sitting.environment) {
    sitting.environment["DBUS_SESSION_BUS_ADDRESS"] = bus_.Announcement();
    sitting.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1";
    for (const char* name : {"DBUS_SESSION_BUS_ADDRESS", "DISPLAY", "XDG_RUNTIME_DIR"})
      ::setenv(name, sitting.environment[name].c_str(), 1);
    ::atspi_init();
  }
  ~Reader() { ::atspi_exit(); }

  /// Waits until there is such an object.
  void AwaitObject(const std::string& role, const std::string& name, const std::string& description = {}) {
    Await([&] { return Find(role, name, description) != nullptr; },
          [&] { return "nothing like " + role + " [" + name + "] [" + description + "] but\n" + seen_; });
  }

  /// The names of what the panel `name` holds, in order.
  std::vector<std::string> NamesIn(const std::string& name) {
    AwaitObject("panel", name);
    const Object panel = Find("panel", name, "");
    std::vector<std::string> names;
    for (int i = 0; i < ::atspi_accessible_get_child_count(panel.get(), nullptr); ++i)
      names.push_back(Text(::atspi_accessible_get_name(
          Object(::atspi_accessible_get_child_at_index(panel.get(), i, nullptr)).get(), nullptr)));
    return names;
  }

  void Press(const std::string& name) {
    const std::string description = name == "Start" ? "Start the game" : "";
    AwaitObject("push button", name, description);
    const Object button = Find("push button", name, description);
    AtspiAction* action = ::atspi_accessible_get_action_iface(button.get());
    ASSERT_NE(action, nullptr) << name;
    EXPECT_EQ(Text(::atspi_action_get_action_name(action, 0, nullptr)), "Press");
    EXPECT_TRUE(::atspi_action_do_action(action, 0, nullptr));
    ::g_object_unref(action);
  }

 private:
  Object Find(const std::string& role, const std::string& name, const std::string& description) {
    Object desktop(::atspi_get_desktop(0));
    ::atspi_accessible_clear_cache(desktop.get());
    seen_.clear();
    return FindIn(std::move(desktop), role + " [" + name + "] [" + description + "]\n");
  }

  Object FindIn(Object object, const std::string& wanted) {
    const std::string here = Text(::atspi_accessible_get_role_name(object.get(), nullptr)) + " [" +
                             Text(::atspi_accessible_get_name(object.get(), nullptr)) + "] [" +
                             Text(::atspi_accessible_get_description(object.get(), nullptr)) + "]\n";
    seen_ += here;
    if (here == wanted) return object;
    const int count = ::atspi_accessible_get_child_count(object.get(), nullptr);
    for (int i = 0; i < count; ++i) {
      Object child(::atspi_accessible_get_child_at_index(object.get(), i, nullptr));
      if (child == nullptr) continue;
      if (Object found = FindIn(std::move(child), wanted)) return found;
    }
    return nullptr;
  }

  Process bus_;
  std::string seen_;
};

void ExpectTheGameIsRead(Sitting& sitting, Reader& reader) {
  sitting.Open();
  for (const char* toolTip :
       {"Change the theme", "Lef click for program About, right click for description of this theme"})
    reader.AwaitObject("push button", toolTip, toolTip);
  reader.AwaitObject("canvas", "Play field, theme Theme1, 1 item left");
  reader.Press("Show or hide the time");
  reader.AwaitObject("label", "00.00");
  reader.Press("Start");
  sitting.AwaitField("after a press on Start", {sitting.Rest(0)}, sitting.Cup(0));
  reader.Press("HighScores");
  std::vector<std::string> rows{"HIGHSCORES", "1.", "P0", "01/02/03", "12.5"};
  for (int row = 2; row <= 10; ++row)
    rows.insert(rows.end(), {std::to_string(row) + ". ", "Nobody", "00/00/00", "100"});
  rows.push_back("Close");
  EXPECT_EQ(reader.NamesIn("Best times"), rows);
  reader.Press("Close");
  sitting.AwaitPanel(false);
  sitting.PutIn(0);
  reader.AwaitObject("alert", "Sorvex");
  reader.AwaitObject("canvas", "Play field, theme Theme1, 0 items left");
  reader.Press("OK");
  reader.AwaitObject("dialog", "You got a highscore");
  reader.AwaitObject("text", "What is your name?");
  sitting.player->Type("Ann");
  reader.Press("OK");
  reader.AwaitObject("label", "Ann");
}

void ExpectDialogsAreRead(Sitting& sitting, Reader& reader) {
  WriteFile(sitting.ThemeFile("ThemeDetails.ini"), "\"Glass, brass\",2026\r\n");
  fs::create_directory(sitting.folder.Path() / "program" / "Empty one");
  sitting.Open();
  sitting.MoveTo(175, 271);
  sitting.player->Press(3);
  sitting.player->Release(3);
  reader.AwaitObject("alert", "Theme Details");
  reader.AwaitObject("label", "Description:\n\tGlass, brass\nDate:\n\t2026\n");
  sitting.Answer("Theme Details");
  sitting.Click(175, 271);
  for (const char* text : {"Sorvex", "1.00.0000", "A game to test how accurate you are with the mouse"})
    reader.AwaitObject("label", text);
  reader.AwaitObject("image", "Logo");
  reader.Press("HighScores");  // behind the box
  sitting.player->UseCloseBox(sitting.Await("About"));
  sitting.Await("Sorvex - Theme1");
  sitting.AwaitPanel(false);
  sitting.Click(316, 276);
  sitting.Await("Choose a theme");
  reader.AwaitObject("list", "Themes");
  for (const char* folder : {"Theme1", "Empty one"}) reader.AwaitObject("list item", folder);
  sitting.player->Type("e");
  sitting.player->Tap("Return");
  reader.AwaitObject("alert", "File(s) missing");
  reader.AwaitObject("label",
                     "There is an important file missing. Can not load theme Empty one\nLoading default theme..");
  sitting.Answer("File(s) missing");
}

// One story, since a process can be a client of one accessibility bus only.
TEST(WindowAccessibility, EverythingIsReadAndPressed) {
  TestTheme theme = CupTheme(1);
  theme.highScores = HighScoreFile({"12.5"});
  Sitting sitting(theme);
  Reader reader(sitting);
  ExpectTheGameIsRead(sitting, reader);
  ExpectDialogsAreRead(sitting, reader);
}

}  // namespace
}  // namespace sorvex
