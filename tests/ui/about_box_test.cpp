// SPDX-License-Identifier: MIT
// The about box: scrolling, the logo, the links.
#include "ui/about_box.h"

#include <gtest/gtest.h>

#include "support/story.h"

namespace sorvex {
namespace {

class About : public testing::Test {
 protected:
  // Opens the box, runs `what` while it is open, closes it.
  void Open(const std::function<void(frmAbout&)>& what) {
    story.Then([this] { story.form.imgAbout.MouseUp(kLeftButton, 0, 1, 1); });
    story.Then([=, this] {
      auto& box = dynamic_cast<frmAbout&>(story.desktop.Front());
      what(box);
      box.Loaded = false;
    });
    story.Frames(1).Run();
  }
  void Pass(Form& form, Long milliseconds) {
    story.desktop.Now += milliseconds;
    RunDueTimers(form, story.desktop.Now);
  }

  Story story;
};

TEST_F(About, OnlyCommentsTallerThanTheirBoxScrollForEver) {
  Open([&](frmAbout& box) {
    for (int tick = 0; tick < 20; ++tick) Pass(box, 50);
    EXPECT_EQ(box.lblComments.Top, 0);
    box.lblComments.Caption = std::string(8 * 25, 'x');  // 8 lines of 17 pixels
    for (int tick = 0; tick < 20; ++tick) Pass(box, 50);
    EXPECT_EQ(box.lblComments.Top, -10) << "10 pixels a second";
    while (box.lblComments.Top < 0 && box.lblComments.Top > -box.lblComments.Height + 0.5F) Pass(box, 50);
    Pass(box, 50);
    EXPECT_EQ(box.lblComments.Top, 123) << "comes in again below the box";
  });
}

TEST_F(About, ATitleWiderThanTheCommentsTakesTheWholeWidth) {
  for (const auto& [letters, left, width] : {std::tuple{24, 96.F, 24 * 8.F}, {25, 0.F, 318.F}}) {
    story.desktop.Title = std::string(static_cast<std::size_t>(letters), 'W');
    Open([left = left, width = width](frmAbout& box) {
      EXPECT_EQ(box.lblTit.Left, left);
      EXPECT_EQ(box.lblTit.Width, width);
    });
  }
}

TEST_F(About, TheLogoFollowsThePointerWithCtrlAloneUntilTheRelease) {
  const std::tuple<Integer, Integer, bool> cases[] = {
      {kLeftButton, kCtrlKey, true}, {kLeftButton, kCtrlKey | kShiftKey, false}, {kRightButton, kCtrlKey, false}};
  for (const auto& [button, shift, follows] : cases) {
    Open([&, button = button, shift = shift, follows = follows](frmAbout& box) {
      box.Left = 15 * 100;
      box.Top = 15 * 50;
      Pass(box, 200);
      box.imgLogo.MouseDown(button, shift, 5, 5);
      story.desktop.Pointer = {30, 1000};  // outside the window
      Pass(box, 50);
      EXPECT_EQ(box.imgLogo.Left, follows ? 30 - 100 - 48 : 8);
      EXPECT_EQ(box.imgLogo.Top, follows ? 1000 - 50 - 48 : 8);
      box.imgLogo.MouseUp(button, shift, 5, 5);
      Pass(box, 199);
      EXPECT_EQ(box.imgLogo.Left == 8, !follows);
      Pass(box, 1);
      EXPECT_EQ(box.imgLogo.Left, 8);
    });
  }
}

// On a dark desktop the color of its texts is white, on the box's yellow as well.
TEST_F(About, NoTextTakesItsColorFromTheDesktop) {
  Open([](frmAbout& box) {
    for (const Control* control : box.Controls) {
      const auto* label = dynamic_cast<const Label*>(control);
      EXPECT_FALSE(label != nullptr && label->ForeColor.IsSystem()) << control->Name;
    }
  });
}

TEST_F(About, OpensItsLinks) {
  Open([](frmAbout& box) {
    for (const Label* link : {&box.lblWeb, &box.lblEmail}) link->Click();
  });
  EXPECT_EQ(story.desktop.OpenedAddresses,
            (std::vector<std::string>{"https://sorvex.example/", "mailto:hello@sorvex.example"}));
}

}  // namespace
}  // namespace sorvex
