// SPDX-License-Identifier: MIT
// Keys, buttons, and the end of the program at every moment.
#include <gtest/gtest.h>

#include <csignal>
#include <map>

#include "window/sitting.h"

namespace sorvex {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

std::map<std::string, std::string> FilesIn(const fs::path& folder) {
  std::map<std::string, std::string> files;
  for (const auto& entry : fs::directory_iterator(folder))
    files[entry.path().filename().string()] = ReadWholeFile(entry.path());
  return files;
}

void PlayToTheEnd(Sitting& sitting) {
  sitting.Open();
  sitting.StartGame();
  sitting.PutIn(0);
  sitting.Await("Sorvex");
}

// Opens one of the dialogs during a game.
void OpenInAGame(Sitting& sitting, const char* key, const char* title) {
  sitting.Open();
  sitting.StartGame();
  sitting.player->Tap(key);
  sitting.Await(title);
}

// While a box is open neither the close box nor a button of the window behind does anything.
void ExpectNoInput(Sitting& sitting) {
  if (sitting.window == 0) return;
  sitting.player->UseCloseBox(sitting.window);
  sitting.Click(100, 270);
  sitting.Click(250, 270);
  EXPECT_FALSE(WaitUntil([&] { return !sitting.program->Runs() || sitting.PanelShows(); }, 500ms));
}

struct Moment {
  const char* name;
  void (*reach)(Sitting&);
  bool boxOpen;
};

constexpr Moment kMoments[] = {
    {"idle", [](Sitting& sitting) { sitting.Open(); }, false},
    {"inAGame",
     [](Sitting& sitting) {
       sitting.Open();
       sitting.StartGame();
     },
     false},
    {"rightAfterASlide",
     [](Sitting& sitting) {
       sitting.Open();
       sitting.StartGame();
       sitting.Grab(35, 70);
       sitting.Hover(60, 150);
       sitting.AwaitField("while dragging", {{0, 50, 143}}, sitting.Cup(0));
       sitting.player->Release();
     },
     false},
    {"atTheFirstBox",
     [](Sitting& sitting) {
       fs::remove(sitting.ThemeFile("HighScores.ini"));
       sitting.Start();
       sitting.Await("File not found");
     },
     true},
    {"atTheGameOverBox", PlayToTheEnd, true},
    {"atTheNameBox",
     [](Sitting& sitting) {
       PlayToTheEnd(sitting);
       sitting.Answer("Sorvex");
       sitting.Await("You got a highscore");
       sitting.player->Type("Half");
     },
     true},
    {"inTheAboutBox", [](Sitting& sitting) { OpenInAGame(sitting, "F1", "About"); }, true},
    {"atTheDetailsBox", [](Sitting& sitting) { OpenInAGame(sitting, "F2", "Theme Details"); }, true},
    {"inTheChooser", [](Sitting& sitting) { OpenInAGame(sitting, "F3", "Choose a theme"); }, true},
};

class WindowEnd : public testing::TestWithParam<Moment> {};

TEST_P(WindowEnd, ComesAtOnceAndLeavesEveryFileAsItWas) {
  Sitting sitting(CupTheme(1));
  const bool boxOpen = GetParam().boxOpen;
  const bool hasSignals = sitting.system == System::Linux;
  for (const bool closeBox : {true, false}) {
    if (closeBox ? boxOpen : !boxOpen && !hasSignals) continue;
    GetParam().reach(sitting);
    if (boxOpen) ExpectNoInput(sitting);
    if (boxOpen && !hasSignals) continue;
    const auto before = FilesIn(sitting.ThemeFile(""));
    const auto asked = std::chrono::steady_clock::now();
    if (closeBox)
      sitting.player->UseCloseBox(sitting.window);
    else
      sitting.program->Signal(SIGTERM);
    EXPECT_EQ(sitting.program->ExitCode(), 0) << (closeBox ? "close box" : "SIGTERM");
    EXPECT_LT(std::chrono::steady_clock::now() - asked, 5s);
    EXPECT_EQ(FilesIn(sitting.ThemeFile("")), before);
    sitting.player->Release();
  }
}

INSTANTIATE_TEST_SUITE_P(Moments, WindowEnd, testing::ValuesIn(kMoments),
                         [](const auto& info) { return info.param.name; });

TEST(WindowKeys, TheFocusAndTheButtonForEnterAreMarkedWithoutAGame) {
  Sitting sitting;
  sitting.Open();
  struct Look {
    Bitmap start, scores, besideField;
    bool operator==(const Look&) const = default;
  };
  const auto look = [&] {
    return Look{sitting.Look({49, 255, 154, 288}), sitting.Look({198, 255, 303, 288}), sitting.Look({100, 4, 110, 8})};
  };
  const auto after = [&](const char* modifier) {
    const Look before = look();
    sitting.player->Tap("Tab", modifier);
    EXPECT_TRUE(WaitUntil([&] { return look() != before; }));
    WaitUntil([] { return false; }, 300ms);
    return look();
  };
  const Look onField = after("Shift_L");
  const Look onStart = after("");
  const Look onScores = after("");
  EXPECT_TRUE(after("") == onField);
  EXPECT_TRUE(onField.start == onScores.start && onField.start != onStart.start);
  EXPECT_TRUE(onField.scores != onStart.scores) << "Enter means it on the field, not on Start";
  EXPECT_TRUE(onField.scores != onScores.scores) << "the focus";
  EXPECT_TRUE(onStart.besideField == onScores.besideField && onField.besideField != onStart.besideField);
}

TEST(WindowKeys, TabSpaceEnterAndAccessKeysDoAsTheirRulesSay) {
  Sitting sitting;
  sitting.Open();
  const std::vector<Placed> atRest{sitting.Rest(0), sitting.Rest(1), sitting.Rest(2)};
  const auto keys = [&](std::initializer_list<const char*> names) {
    for (const char* name : names) sitting.player->Tap(name);
  };
  keys({"Return"});
  sitting.AwaitField("after Enter on Start, which has the focus first", atRest, sitting.Cup(0));
  keys({"Tab", "space"});
  sitting.AwaitPanel(true);  // HighScores is second
  keys({"Tab", "Tab", "space"});
  sitting.AwaitPanel(false);  // then the field, then Close
  keys({"Return"});
  sitting.AwaitPanel(true);  // Close hid itself: Enter is the default button's
  keys({"Tab", "Return"});
  sitting.AwaitPanel(false);  // Enter on the focused Close
  sitting.player->Tap("h", "Alt_L");
  sitting.AwaitPanel(true);
  sitting.player->Tap("c", "Alt_L");
  EXPECT_FALSE(WaitUntil([&] { return !sitting.PanelShows(); }, 300ms)) << "Close has no access key";
  keys({"Tab", "Tab", "space"});
  sitting.AwaitPanel(false);
  sitting.Click(10 + 160, 10 + 150);
  keys({"Return"});
  sitting.AwaitPanel(true);  // the field was clicked
  keys({"Tab", "Tab", "Tab", "Tab", "Tab", "space"});
  sitting.AwaitPanel(false);  // all four, round to Close again
  keys({"Tab", "Return"});    // hidden, Close is left out: Start after the field
  sitting.AwaitHover("in a new game", atRest, 2);
  sitting.player->Tap("s", "Alt_L");
  sitting.AwaitField("after Alt+S", atRest, sitting.Cup(0));
  EXPECT_EQ(sitting.player->Titles().size(), 1U);
}

}  // namespace
}  // namespace sorvex
