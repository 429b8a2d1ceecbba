// SPDX-License-Identifier: MIT
// Keys, buttons, and the end of the program at every moment.
#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <map>

#include "window/sitting.h"

namespace sorvex {
namespace {

using namespace std::chrono_literals;

std::map<std::string, std::string> FilesIn(const fs::path& folder) {
  std::map<std::string, std::string> files;
  for (const auto& entry : fs::directory_iterator(folder))
    files[entry.path().filename().string()] = ReadWholeFile(entry.path());
  return files;
}

struct Moment {
  const char* name;
  std::string box;  // that is open, by its title; none: during the game
  std::string key;  // opens it; none: it comes by itself
};

const Moment kMoments[] = {{"inAGame", "", ""},
                           {"atTheFirstBox", "File not found", ""},
                           {"atTheGameOverBox", "Sorvex", ""},
                           {"atTheNameBox", "You got a highscore", ""},
                           {"inTheAboutBox", "About", "F1"},
                           {"atTheDetailsBox", "Theme Details", "F2"},
                           {"inTheChooser", "Choose a theme", "F3"}};

void Reach(Sitting& sitting, const Moment& moment) {
  if (moment.box == "File not found") {
    fs::remove(sitting.ThemeFile("HighScores.ini"));
    sitting.Start();
    sitting.Await(moment.box);
    return;  // there is no other window yet
  }
  sitting.Open();
  sitting.StartGame();
  if (moment.box.empty()) return;
  moment.key.empty() ? sitting.PutIn(0) : sitting.player->Tap(moment.key);
  if (moment.box == "You got a highscore") sitting.Answer("Sorvex");
  sitting.Await(moment.box);
  sitting.player->Type("a");
  // While a box is open neither the close box nor a button of the window behind does anything.
  sitting.player->UseCloseBox(sitting.window);
  for (const int button : {100, 250}) sitting.Click(button, 270);
  EXPECT_FALSE(WaitUntil([&] { return !sitting.program->Runs() || sitting.PanelShows(); }, 500ms));
}

class WindowEnd : public testing::TestWithParam<Moment> {};

// By the close box, or by a signal, where the system has them, while a box is open.
TEST_P(WindowEnd, ComesAtOnceAndLeavesEveryFileAsItWas) {
  Sitting sitting(CupTheme(1));
  Reach(sitting, GetParam());
  const bool byCloseBox = GetParam().box.empty();
  if (!byCloseBox && sitting.system == System::Windows) return;
  const auto before = FilesIn(sitting.ThemeFile(""));
  const auto asked = std::chrono::steady_clock::now();
  if (byCloseBox)
    sitting.player->UseCloseBox(sitting.window);
  else
    sitting.program->Signal(SIGTERM);
  EXPECT_EQ(sitting.program->ExitCode(), 0);
  EXPECT_LT(std::chrono::steady_clock::now() - asked, 5s);
  EXPECT_EQ(FilesIn(sitting.ThemeFile("")), before);
}

INSTANTIATE_TEST_SUITE_P(Moments, WindowEnd, testing::ValuesIn(kMoments),
                         [](const auto& info) { return info.param.name; });

TEST(WindowKeys, TheFocusAndTheButtonForEnterAreMarkedWithoutAGame) {
  Sitting sitting;
  sitting.Open();
  using Look = std::array<Bitmap, 3>;  // of Start, of HighScores, beside the field
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
  EXPECT_TRUE(onField[0] == onScores[0] && onField[0] != onStart[0]);
  EXPECT_TRUE(onField[1] != onStart[1]) << "Enter means it on the field, not on Start";
  EXPECT_TRUE(onField[1] != onScores[1]) << "the focus";
  EXPECT_TRUE(onStart[2] == onScores[2] && onField[2] != onStart[2]);
}

TEST(WindowKeys, TabSpaceEnterAndAccessKeysDoAsTheirRulesSay) {
  Sitting sitting(CupTheme(1));
  sitting.Open();
  const auto keys = [&](std::initializer_list<const char*> names) {
    for (const char* name : names) sitting.player->Tap(name);
  };
  keys({"Return"});
  sitting.AwaitField("after Enter on Start, which has the focus first", {sitting.Rest(0)}, sitting.Cup(0));
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
}

}  // namespace
}  // namespace sorvex
