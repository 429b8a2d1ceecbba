// SPDX-License-Identifier: MIT
// What start-up leaves in the registry, and that nothing there can stop it.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "startup/mdl_registry.h"
#include "support/story.h"

namespace sorvex {
namespace {

using mdlRegistry::Variant;

Variant Recorded(Desktop& desktop) {
  return mdlRegistry::ReadRegistryValue(desktop, kLocalMachine, "Software\\Quennet\\Sorvex", "Path");
}

TEST(StartUp, RecordsTheFolderOfTheCopyThatRanLast) {
  Story story;
  const std::string folder = story.desktop.ProgramFolder();
  EXPECT_EQ(Recorded(story.desktop), Variant(folder));
  EXPECT_EQ(story.state.ThemeName, "Theme1");

  HeadlessDesktop moved((story.folder.Path() / "moved").string(), (story.folder.Path() / "registry.reg").string());
  Program(moved).Initialize();
  EXPECT_EQ(Recorded(moved), Variant((story.folder.Path() / "moved").string()));
}

TEST(StartUp, TheBackgroundTimerTicksOnceHalfASecondLater) {
  Story story;
  story.Wait(499).Frames(1).Then([&] { EXPECT_TRUE(story.form.tmrChangePicBack.Enabled); });
  story.Wait(1).Frames(1).Then([&] { EXPECT_FALSE(story.form.tmrChangePicBack.Enabled); });
  EXPECT_EQ(story.Run(), Story::End::ScriptEnded);
}

TEST(StartUp, GoesOnWithoutAWritableRegistry) {
  TempFolder folder;
  WriteTheme(folder.Path(), CupTheme(1));
  const auto store = folder.Path() / "registry.reg";
  WriteFile(store, "not a registry");
  for (const mode_t mode : {0644U, 0444U, 0U}) {
    ASSERT_EQ(chmod(store.c_str(), mode), 0);
    HeadlessDesktop desktop(folder.Path().string(), store.string());
    Program program(desktop);
    program.Initialize();
    EXPECT_TRUE(desktop.Boxes.empty());
    EXPECT_EQ(program.state.ThemeName, "Theme1");
    EXPECT_EQ(program.form.Caption, "Sorvex - Theme1");
  }
  chmod(store.c_str(), 0644);
  EXPECT_EQ(ReadWholeFile(store), "not a registry");
}

TEST(Run, AnErrorOutsideAGameIsShownAndTheWindowStays) {
  TempFolder folder;
  WriteTheme(folder.Path(), CupTheme(1));
  HeadlessDesktop desktop(folder.Path().string(), (folder.Path() / "registry.reg").string());
  // The window is not reachable from here but by its timer: the test stands in for a delivery that goes wrong.
  desktop.Script = {[] { throw PathAccessError(); }, [] {}, [] { throw ProgramEnded{}; }};
  EXPECT_EQ(RunProgram(desktop), 0);
  EXPECT_EQ(desktop.Boxes,
            (std::vector<HeadlessDesktop::Box>{{"Error: 75\r\nPath/File access error", "Sorvex", BoxIcon::Critical}}));
  EXPECT_TRUE(desktop.Script.empty()) << "the window was shown again until it was closed";
}

}  // namespace
}  // namespace sorvex
