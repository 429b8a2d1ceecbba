// SPDX-License-Identifier: MIT
// A theme folder that is carried between Linux and Windows.
#include <gtest/gtest.h>

#include "window/sitting.h"

namespace sorvex {
namespace {

// Plays the theme and puts `name` into its table.
void Record(Sitting& sitting, const std::string& theme, const std::string& name) {
  sitting.Open();
  sitting.player->Tap("F3");
  sitting.Await("Choose a theme");
  sitting.player->Type("z");
  sitting.player->Tap("Return");
  sitting.Await("Sorvex - " + theme);
  sitting.StartGame();
  // The chosen theme's waiting frame looks the same, but takes no pointer.
  sitting.AwaitHover("in the game", {sitting.Rest(0), sitting.Rest(1)}, 1);
  sitting.PutIn(0);
  sitting.PutIn(1);
  sitting.Answer("Sorvex");
  sitting.Await("You got a highscore");
  sitting.player->Type(name);
  sitting.Answer("You got a highscore");
  sitting.AwaitPanel(true);
  sitting.player->UseCloseBox(sitting.window);
  EXPECT_EQ(sitting.program->ExitCode(), 0);
}

TEST(WineHandOver, BothProgramsKeepEachOthersLetters) {
  const std::string kept = "\"Ξένια\"\r\n\"24.11.26\"\r\n\"98.5\"\r\n\"花子\"\r\n\"24.11.26\"\r\n\"99\"\r\n";
  TestTheme theme = CupTheme(2, "Zoo Θέμα 日本");
  theme.highScores = kept;
  Sitting sitting(CupTheme(2));
  WriteTheme(sitting.folder.Path() / "program", theme);
  int recorded = 0;
  for (const System system : {System::Linux, System::Windows, System::Linux}) {
    sitting.system = system;
    const std::string name = "Player " + std::to_string(++recorded);
    Record(sitting, theme.name, name);
    const std::string table = ReadWholeFile(sitting.folder.Path() / "program" / theme.name / "HighScores.ini");
    for (int i = 1; i <= recorded; ++i)
      EXPECT_NE(table.find("\"Player " + std::to_string(i) + "\"\r\n"), std::string::npos) << table;
    EXPECT_NE(table.find(kept), std::string::npos) << table;
  }
}

}  // namespace
}  // namespace sorvex
