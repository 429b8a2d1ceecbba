// SPDX-License-Identifier: MIT
// The same short game in odd surroundings: what a player's system may lack, break or set otherwise.
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <regex>
#include <span>

#include "window/sitting.h"
#include "window/sound_server.h"

namespace sorvex {
namespace {

using namespace std::chrono_literals;

void PutOneIn(Sitting& sitting) {
  sitting.StartGame();
  sitting.PutIn(0);
  sitting.MoveTo(100, 270);
  sitting.AwaitField("once the item is put in", {sitting.Rest(1)}, std::nullopt);
}

void Close(Sitting& sitting) {
  sitting.player->UseCloseBox(sitting.window);
  EXPECT_EQ(sitting.program->ExitCode(), 0);
}

void PlayAndClose(Sitting& sitting) {
  sitting.Open();
  PutOneIn(sitting);
  Close(sitting);
}

void PlayWithSounds(Sitting& sitting) {
  sitting.WriteSounds();
  PlayAndClose(sitting);
}

void LiveIn(Sitting& sitting, const fs::path& home) {
  sitting.environment["HOME"] = home;
  for (const char* other : {"XDG_DATA_HOME", "XDG_RUNTIME_DIR", "TMPDIR"}) sitting.environment.erase(other);
}

// Read-only for root too, which most of these tests run as.
void PlayFromAReadOnlyHome(Sitting& sitting) {
  LiveIn(sitting, "/proc");
  PlayAndClose(sitting);
}

void PlayFromAMissingHome(Sitting& sitting) {
  LiveIn(sitting, "/proc/missing");
  PlayAndClose(sitting);
}

void PlayFromAHomeThatIsAFile(Sitting& sitting) {
  LiveIn(sitting, sitting.ThemeFile("Theme.ini"));
  PlayAndClose(sitting);
}

void MeetNoTheme(Sitting& sitting) {
  fs::remove_all(sitting.ThemeFile(""));
  sitting.Start();
  const auto answerBoth = [&] {
    sitting.Answer("File(s) missing");
    sitting.Answer("Theme not found");
  };
  answerBoth();
  sitting.window = sitting.Await("Sorvex");
  sitting.Click(100, 270);
  answerBoth();
  sitting.Await("Sorvex");
  Close(sitting);
}

void UseLocale(Sitting& sitting, const std::string& name) {
  const fs::path folder = sitting.folder.Path() / "locales";
  fs::create_directories(folder);
  const std::string source = name.substr(0, name.find('.'));
  ASSERT_EQ(std::system(("localedef -i " + source + " -f UTF-8 " + (folder / name).string()).c_str()), 0);
  sitting.environment["LANG"] = name;
  sitting.environment["LOCPATH"] = folder;
}

void PlayWithDecimalCommas(Sitting& sitting) {
  UseLocale(sitting, "de_DE.UTF-8");
  sitting.Open();
  PutOneIn(sitting);
  sitting.PutIn(1);
  sitting.Answer("Sorvex");
  sitting.Await("You got a highscore");
  sitting.player->Type("Ann");
  sitting.Answer("You got a highscore");
  sitting.AwaitPanel(true);
  Close(sitting);
  const std::string table = ReadWholeFile(sitting.ThemeFile("HighScores.ini"));
  const std::regex entry("\"Ann\"\r\n\"\\d+\\.\\d+\\.\\d+\"\r\n\"\\d*\\.?\\d*\"\r\n");  // the date is the system's
  EXPECT_TRUE(std::regex_search(table, entry, std::regex_constants::match_continuous)) << table;
}

// What is drawn on the window beside the field stands as it does where text runs from left to right.
void PlayFromRightToLeft(Sitting& sitting) {
  const auto play = [&] {
    sitting.Open();
    PutOneIn(sitting);
    Bitmap buttons = sitting.Look({0, 250, 335, 294});
    Close(sitting);
    return buttons;
  };
  const Bitmap designed = play();
  UseLocale(sitting, "he_IL.UTF-8");
  EXPECT_TRUE(play() == designed);
}

// Finds the main window on the screen by the upper edge of its field's frame.
void AwaitPicture(Sitting& sitting) {
  const auto found = [&] {
    const Bitmap seen = sitting.player->Look({0, 0, 1280, 1000});
    for (int y = 0; y < seen.Height(); ++y) {
      const std::span row(seen.Row(y), static_cast<std::size_t>(seen.Width()));
      const auto edge = std::search_n(row.begin(), row.end(), 300, 0xFF808080);
      if (edge == row.end()) continue;
      sitting.clientArea = Rectangle::At(static_cast<int>(edge - row.begin()) - 8, y - 8, {335, 294});
      return true;
    }
    return false;
  };
  Await(found, [] { return std::string("no field on the screen"); });
}

// The compositor shows its screen in a window, and the program's window somewhere in it.
void PlayOnWayland(Sitting& sitting) {
  const fs::path home = sitting.environment.at("HOME");
  const fs::path settings = home / "weston.ini";
  WriteFile(settings, "[core]\nidle-time=0\n[shell]\npanel-position=none\nanimation=none\nstartup-animation=none\n");
  sitting.windowManager.emplace(
      std::vector<std::string>{"weston", "--backend=x11-backend.so", "--use-pixman", "--width=1280", "--height=1000",
                               "--socket=wayland", "--config=" + settings.string()},
      sitting.environment);
  Await([&] { return fs::exists(home / "runtime/wayland"); }, [] { return std::string("no compositor"); });
  sitting.environment.erase("DISPLAY");
  sitting.environment["WAYLAND_DISPLAY"] = "wayland";
  sitting.environment["XDG_SESSION_TYPE"] = "wayland";
  sitting.Start();
  AwaitPicture(sitting);
  PutOneIn(sitting);
  sitting.MoveTo(323, -13);  // the close box in the frame that the toolkit draws
  sitting.player->Press();
  sitting.player->Release();
  EXPECT_EQ(sitting.program->ExitCode(), 0);
}

// The toolkit ends the program then, whatever its other threads wait for.
void LoseTheDisplay(Sitting& sitting) {
  sitting.WriteSounds();
  const SoundServer server(sitting);
  server.Signal(SIGSTOP);
  sitting.Open();
  sitting.StartGame();
  sitting.Grab(35, 70);
  sitting.player.reset();
  const auto lost = std::chrono::steady_clock::now();
  sitting.screen->Signal(SIGKILL);
  EXPECT_EQ(sitting.program->ExitCode(), 1);
  EXPECT_LT(std::chrono::steady_clock::now() - lost, 5s);
  EXPECT_EQ(ReadWholeFile(sitting.ThemeFile("HighScores.ini")), sitting.theme.highScores);
}

struct Surrounding {
  const char* name;
  void (*play)(Sitting&);
  Screen screen = {};
};

// Those named so are the Linux program's only.
const Surrounding kSurroundings[] = {{"noTheme", MeetNoTheme},
                                     {"decimalCommas", PlayWithDecimalCommas},
                                     {"fromRightToLeft", PlayFromRightToLeft},
                                     {"noSharedMemory", PlayAndClose, {{"-extension", "MIT-SHM"}}},
                                     {"noWindowManagerOnLinux", PlayAndClose, {.managed = false}},
                                     {"noSoundServerOnLinux", PlayWithSounds},
                                     {"aReadOnlyHomeOnLinux", PlayFromAReadOnlyHome},
                                     {"aMissingHomeOnLinux", PlayFromAMissingHome},
                                     {"aHomeThatIsAFileOnLinux", PlayFromAHomeThatIsAFile},
                                     {"aWaylandDesktopOnLinux", PlayOnWayland, {.managed = false}},
                                     {"aLostDisplayOnLinux", LoseTheDisplay}};

void PrintTo(const Surrounding& surrounding, std::ostream* out) { *out << surrounding.name; }

class WindowSurroundings : public testing::TestWithParam<Surrounding> {};

TEST_P(WindowSurroundings, LetOneStartAndPlayAndEnd) {
  Sitting sitting(CupTheme(2), 1, GetParam().screen);
  GetParam().play(sitting);
}

INSTANTIATE_TEST_SUITE_P(Odd, WindowSurroundings, testing::ValuesIn(kSurroundings),
                         [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace sorvex
