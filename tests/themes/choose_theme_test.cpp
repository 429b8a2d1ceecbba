// SPDX-License-Identifier: MIT
// The chooser, what follows it, and the details box.
#include "themes/choose_theme.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "support/story.h"

namespace sorvex {
namespace {

using Box = HeadlessDesktop::Box;

class Chooser : public testing::Test {
 protected:
  // Opens the chooser, selects `name` (empty: nothing) and clicks the button.
  void Choose(const std::string& name, CommandButton frmChooseTheme::*button) {
    story.Then([this] { story.form.Image2.Click(); });
    story.Then([=, this] {
      auto& dialog = dynamic_cast<frmChooseTheme&>(story.desktop.Front());
      listed = dialog.List1.List;
      const auto entry = std::ranges::find(listed, name);
      dialog.List1.ListIndex = entry == listed.end() ? -1 : static_cast<int>(entry - listed.begin());
      (dialog.*button).Click();
      stayedOpen = dialog.Loaded;
      if (stayedOpen) dialog.CancelButton.Click();
    });
    story.Frames(1);
  }

  Story story{{CupTheme(3), CupTheme(1, "Other one.v2")}};
  std::vector<std::string> listed;
  bool stayedOpen = false;
};

TEST_F(Chooser, ListsEveryFolderBesideTheProgramAndNothingElse) {
  const std::filesystem::path program = story.folder.Path() / "program";
  std::filesystem::create_directory(program / ".hidden");
  std::error_code noLinks;  // not every system lets a user make them
  std::filesystem::create_directory_symlink(program / "Theme1", program / "link", noLinks);
  std::filesystem::create_symlink(program / "nowhere", program / "broken link", noLinks);
  std::ofstream(program / "a file") << "no folder";
  Choose("", &frmChooseTheme::OKButton);
  story.Run();
  std::ranges::sort(listed);
  std::vector<std::string> folders{".hidden", "Other one.v2", "Theme1"};
  if (!noLinks) folders.emplace_back("link");
  EXPECT_EQ(listed, folders);
  EXPECT_TRUE(stayedOpen) << "OK without a selection does nothing";
}

TEST_F(Chooser, EndsARunningGameWithoutAReportAlsoOnCancel) {
  WriteTheme(story.folder.Path() / "program", CupTheme(0, "No items"));
  for (const auto& [theme, button] : {std::pair{"Theme1", &frmChooseTheme::CancelButton},
                                      {"Other one.v2", &frmChooseTheme::OKButton},
                                      {"No items", &frmChooseTheme::OKButton}}) {
    story.state.ThemeName = "Theme1";
    story.Start().Move(150, 30).Grab(152, 70).Move(154, 5);  // item 2
    Choose(theme, button);
    story.Frames(2).Move(30, 30).Release().Run();
    EXPECT_EQ(story.state.StartCommand, modVariables::Start::Idle) << theme;
    EXPECT_TRUE(story.desktop.Boxes.empty()) << theme;
    EXPECT_EQ(story.state.CurItem, 0) << theme;
    EXPECT_EQ(story.form.lblTime.Caption, "0") << "the interrupted frame is finished";
  }
}

TEST(Details, AreShownOnARightReleaseOrByF2InTheirFourLines) {
  Story story;
  const auto& release = story.form.imgAbout.MouseUp;
  CommandForFunctionKey(story.form, 2)->Action();
  story.form.ThemeDate = "2026";
  release(kMiddleButton, 0, 1, 1);
  release(kRightButton, 0, 1, 1);
  EXPECT_EQ(story.desktop.Boxes,
            (std::vector<Box>{{"No details found", "Theme Details", BoxIcon::Information},
                              {"Description:\r\n\t\r\nDate:\r\n\t2026\r\n", "Theme Details", BoxIcon::Information}}));
}

}  // namespace
}  // namespace sorvex
