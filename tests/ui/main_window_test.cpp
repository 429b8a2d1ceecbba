// SPDX-License-Identifier: MIT
// The main window's design, its layout, its keyboard and its small commands.
#include "forms/main_window.h"

#include <gtest/gtest.h>

#include <set>

#include "platform/accessibility.h"
#include "support/story.h"
#include "themes/load_theme.h"

namespace sorvex {
namespace {

TEST(MainWindow, ControlsHaveNamesOfTheirOwnAndEveryEventIsBound) {
  const Story story({CupTheme(21)});
  const frmMain& form = story.form;
  std::set<std::pair<std::string, int>> names;
  std::set<std::string> shown;
  for (const Control* control : form.Controls) {
    EXPECT_TRUE(names.emplace(control->Name, control->Index).second) << control->Name << " " << control->Index;
    const auto* button = dynamic_cast<const CommandButton*>(control);
    const auto* timer = dynamic_cast<const Timer*>(control);
    EXPECT_TRUE((button == nullptr || button->Click) && (timer == nullptr || timer->Tick)) << control->Name;
    if (timer == nullptr && IsShown(*control)) shown.insert(control->Name);
  }
  EXPECT_TRUE(form.Unload && form.picHighScores.Paint && form.Image1.Click);
  EXPECT_EQ(shown,
            (std::set<std::string>{"PicCanvas", "Command1", "cmdShowHighscores", "Image1", "Image2", "imgAbout"}));
}

TEST(MainWindow, ShowsTheBuiltInPictureUntilAThemeIsLoaded) {
  Story story(std::vector<TestTheme>{});
  const PictureBox& field = story.form.PicCanvas;
  EXPECT_EQ(field.Image().At(5, 9), story.desktop.BuiltInPicture(BuiltIn::Canvas)->Pixels().At(5, 9));
  EXPECT_EQ(story.form.picCD.ScaleSize(), (Size{61, 69})) << "the first contact test is made at this size";
}

TEST(MainWindow, IsLaidOutByTheFieldAndTheTwipsAtStart) {
  const struct {
    Size field;
    TwipRatio twips;
    float width, height, row, start, scores, about, folder;
    int client;
  } cases[] = {
      {{636, 250}, {15, 15}, 9950, 5025, 269, 49, 305.111F, 159, 411.111F, 655},
      {{316, 236}, {12, 7.5F}, 4190, 2520, 255, 59.25F, 210.639F, 169.25F, 316.639F, 341},
      {{196, 150}, {15, 15}, 3350, 3525, 169, 49, 158.444F, 159, 264.444F, 288},  // as far as the folder image
  };
  for (const auto& c : cases) {
    TestTheme theme = CupTheme(1, "Next");
    theme.field = c.field;
    Story story({CupTheme(2), theme});
    const frmMain& form = story.form;
    const float before = form.Width;
    story.desktop.Twips = c.twips;
    LoadTheme(story.program.game, story.state.ThemeName = "Next");
    EXPECT_EQ(form.Caption, "Sorvex - Next");
    EXPECT_EQ(form.PicCanvas.ScaleSize(), c.field) << "the field at once";
    EXPECT_EQ(form.Width, before) << "the window at the next Start";
    story.Start().Frames(1).Run();
    EXPECT_EQ(form.PicBackbuff.ScaleSize(), c.field);
    EXPECT_EQ(form.PicPlainSprite(0).OuterSize(), (Size{42, 32})) << "the target's frame is one pixel";
    EXPECT_EQ(std::pair(form.Width, form.Height), std::pair(c.width, c.height));
    const std::tuple<const Control*, float, float> places[] = {{&form.Command1, c.start, c.row},
                                                               {&form.cmdShowHighscores, c.scores, c.row},
                                                               {&form.imgAbout, c.about, c.row},
                                                               {&form.Image2, c.folder, 264}};
    for (const auto& [control, left, top] : places) {
      EXPECT_NEAR(control->Left, left, .001) << control->Name;
      EXPECT_EQ(control->Top, top) << control->Name;
    }
    EXPECT_EQ(ClientSize(form, c.twips).width, c.client);
    EXPECT_EQ(form.picHighScores.Left, 8);
  }
}

TEST(MainWindow, IsToldInWordsToThoseWhoHearIt) {
  Story story;
  const std::string& field = story.form.PicCanvas.AccessibleName;
  EXPECT_EQ(field, "Play field, theme Theme1, 3 items left");
  story.Start().PutIn(0).PutIn(1).Frames(2).Run();
  EXPECT_EQ(field, "Play field, theme Theme1, 1 item left");
  story.Start().Frames(1).Run();
  EXPECT_EQ(field, "Play field, theme Theme1, 3 items left");
  const std::string panel = SpokenText(story.form, story.form.picHighScores);
  EXPECT_TRUE(panel.starts_with("Best times HIGHSCORES 1. Nobody 00/00/00 100 2.  Nobody")) << panel;
}

}  // namespace
}  // namespace sorvex
