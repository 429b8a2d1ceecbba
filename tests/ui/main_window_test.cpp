// SPDX-License-Identifier: MIT
// The main window's design, its layout, its keyboard and its small commands.
#include "ui/main_window.h"

#include <gtest/gtest.h>

#include <set>

#include "support/story.h"

namespace sorvex {
namespace {

TEST(MainWindow, ControlsHaveNamesOfTheirOwnAndEveryEventIsBound) {
  const Story story({CupTheme(21)});
  const frmMain& form = story.form;
  std::set<std::pair<std::string, int>> names;
  std::set<int> tabs;
  std::set<std::string> unbound;
  std::set<std::string> shown;
  for (const Control* control : form.Controls) {
    EXPECT_FALSE(control->Name.empty());
    EXPECT_TRUE(names.emplace(control->Name, control->Index).second) << control->Name << " " << control->Index;
    EXPECT_TRUE(control->TabIndex < 0 || tabs.insert(control->TabIndex).second) << control->Name;
    const auto* button = dynamic_cast<const CommandButton*>(control);
    const auto* timer = dynamic_cast<const Timer*>(control);
    if ((button != nullptr && !button->Click) || (timer != nullptr && !timer->Tick)) unbound.insert(control->Name);
    if (timer == nullptr && IsShown(*control)) shown.insert(control->Name);
  }
  EXPECT_EQ(tabs, (std::set<int>{0, 1, 2, 3}));
  EXPECT_TRUE(unbound.empty());
  EXPECT_TRUE(form.Unload && form.picHighScores.Paint && form.Image1.Click);
  EXPECT_EQ(shown,
            (std::set<std::string>{"PicCanvas", "Command1", "cmdShowHighscores", "Image1", "Image2", "imgAbout"}));
}

TEST(MainWindow, SurfacesHaveTheirDesignedDrawingArea) {
  Story story(std::vector<TestTheme>{});
  const frmMain& form = story.form;
  const struct {
    const PictureBox& surface;
    Size area;
    Pixel background;
  } cases[] = {{form.PicCanvas, {316, 236}, 0xFFF0F0F0},    {form.picCD, {61, 69}, 0xFFC00000},
               {form.picInvertedMask, {277, 261}, kWhite},  {form.PicBackbuff, {29, 29}, 0xFFF0F0F0},
               {form.PicPlainSprite(0), {108, 73}, kWhite}, {form.PicSprite(0), {38, 11}, 0xFFF0F0F0},
               {form.picHighScores, {317, 281}, 0xFF80FFFF}};
  for (const auto& c : cases) {
    EXPECT_EQ(c.surface.Image().Extent(), c.area) << c.surface.Name;
    EXPECT_EQ(c.surface.Background, c.background) << c.surface.Name;
  }
  EXPECT_EQ(form.PicCanvas.Image().At(5, 9), story.desktop.BuiltInPicture(BuiltIn::Canvas)->Pixels().At(5, 9))
      << "the built-in picture shows, cut to the field";
}

TEST(MainWindow, IsLaidOutByTheFieldAndTheTwips) {
  const struct {
    Size field;
    float twips, width, height, row, start, scores, about, folder;
  } cases[] = {
      {{316, 236}, 15, 5150, 4815, 255, 49, 198.444F, 159, 304.444F},
      {{636, 250}, 15, 9950, 5025, 269, 49, 305.111F, 159, 411.111F},
      {{316, 236}, 12, 4190, 3897, 255, 59.25F, 210.639F, 169.25F, 316.639F},
      {{316, 236}, 7.5F, 2750, 2520, 255, 90, 247.222F, 200, 353.222F},
  };
  for (const auto& c : cases) {
    TestTheme theme = CupTheme(1);
    theme.field = c.field;
    Story story({theme});
    story.desktop.Twips = {c.twips, c.twips};
    story.Start().Frames(1).Run();
    const frmMain& form = story.form;
    EXPECT_EQ(form.Width, c.width);
    EXPECT_EQ(form.Height, c.height);
    for (const Control* control :
         std::initializer_list<const Control*>{&form.Command1, &form.cmdShowHighscores, &form.imgAbout})
      EXPECT_EQ(control->Top, c.row) << control->Name;
    EXPECT_NEAR(form.Command1.Left, c.start, .001);
    EXPECT_NEAR(form.cmdShowHighscores.Left, c.scores, .001);
    EXPECT_NEAR(form.imgAbout.Left, c.about, .001);
    EXPECT_NEAR(form.Image2.Left, c.folder, .001);
    EXPECT_EQ(form.Image2.Top, 264);
    EXPECT_EQ(form.picHighScores.Left, 8);
  }
}

TEST(Tab, VisitsStartScoresFieldAndTheShownPanelsClose) {
  Story story;
  frmMain& form = story.form;
  EXPECT_EQ(TabOrder(form), (std::vector<Control*>{&form.Command1, &form.cmdShowHighscores, &form.PicCanvas}));
  EXPECT_EQ(ButtonForEnter(form, &form.Command1), &form.Command1);
  EXPECT_EQ(ButtonForEnter(form, nullptr), &form.cmdShowHighscores);
  ButtonForEnter(form, &form.PicCanvas)->Click();
  EXPECT_EQ(TabOrder(form).back(), &form.cmdHideScores);
  EXPECT_EQ(ButtonForEnter(form, &form.cmdHideScores), &form.cmdHideScores);
  form.cmdHideScores.Click();
  EXPECT_NE(FocusAfter(form, form.cmdHideScores), &form.cmdHideScores);
  EXPECT_EQ(ButtonForEnter(form, &form.cmdHideScores), &form.cmdShowHighscores) << "a hidden button is not pressed";
  EXPECT_EQ(ButtonForEscape(form), nullptr);
}

TEST(TheClock, IsShownByAClickOnItsSpotAndHiddenByTheNext) {
  Story story;
  for (const bool shown : {true, false}) {
    story.pointer.Press(nullptr, kLeftButton, 0, 10, 270);
    story.pointer.Release(kLeftButton, 0, 10, 270);
    EXPECT_EQ(story.form.lblTime.Visible, shown) << "the shown label is no obstacle";
  }
}

}  // namespace
}  // namespace sorvex
