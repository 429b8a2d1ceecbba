// SPDX-License-Identifier: MIT
// Input made clean: who gets a pointer event, what a lost pointer means.
#include "platform/input.h"

#include <gtest/gtest.h>

namespace sorvex {
namespace {

using Log = std::vector<std::string>;

// A surface with a label on it, and an image over a label on the form itself.
class Input : public testing::Test {
 protected:
  Input() {
    form.Controls = {&pad, &image, &label, &onPad};
    Place(pad, 0, 50);
    Place(image, 100, 20);
    Place(label, 95, 40);
    Place(onPad, 5, 10);
    onPad.Container = &pad;
    std::tie(pad.MouseDown, pad.MouseMove) = std::pair(Note("pad down"), Note("pad move"));
    std::tie(pad.MouseUp, image.MouseUp) = std::pair(Note("pad up"), Note("image up"));
    for (const auto& [click, what] :
         {std::pair{&image.Click, "image click"}, {&label.Click, "label click"}, {&onPad.Click, "onPad click"}})
      *click = [this, what = what] { log.push_back(what); };
  }
  static void Place(Control& control, float at, float size) {
    control.Left = control.Top = at;
    control.Width = control.Height = size;
  }
  PointerEvent Note(const std::string& what) {
    return [this, what](Integer button, Integer, float x, float y) {
      log.push_back(what + " " + std::to_string(button) + " at " + std::to_string(static_cast<int>(x)) + "," +
                    std::to_string(static_cast<int>(y)));
    };
  }
  Log Taken() { return std::exchange(log, {}); }

  Form form;
  PictureBox pad;
  Image image;
  Label label, onPad;
  Log log;
  PointerInput pointer{form};
};

TEST_F(Input, WhilePressedAllEventsBelongToThePressedControl) {
  pointer.Release(kLeftButton, 0, 30, 30);  // of a press elsewhere: nobody's
  pointer.Press(&pad, kLeftButton, 0, 30, 30);
  pointer.Move(nullptr, 0, -200, 105);
  pointer.Press(nullptr, kRightButton, 0, 105, 105);
  pointer.Release(kLeftButton, 0, 300, 30);
  pointer.Move(nullptr, 0, 105, 105);
  pointer.Release(kRightButton, 0, 7, 7);
  pointer.Move(&pad, 0, 40, 40);
  EXPECT_EQ(log, (Log{"pad down 1 at 30,30", "pad move 1 at -200,105", "pad down 2 at 105,105", "pad up 1 at 300,30",
                      "pad move 2 at 105,105", "pad up 2 at 7,7", "pad move 0 at 40,40"}));
}

TEST_F(Input, AClickIsALeftReleaseOnTheControlPressed) {
  const auto click = [&](PictureBox* on, Integer button, float at, float upAt) {
    pointer.Press(on, button, 0, at, at);
    pointer.Release(button, 0, upAt, upAt);
    return Taken();
  };
  EXPECT_EQ(click(nullptr, kLeftButton, 105, 119), (Log{"image up 1 at 19,19", "image click"}));
  EXPECT_EQ(click(nullptr, kLeftButton, 105, 120), Log{"image up 1 at 20,20"});
  EXPECT_EQ(click(nullptr, kRightButton, 105, 105), Log{"image up 2 at 5,5"});
  EXPECT_EQ(click(nullptr, kLeftButton, 97, 97), Log{"label click"});
  EXPECT_EQ(click(&pad, kLeftButton, 7, 7), Log{"onPad click"});
  EXPECT_EQ(click(nullptr, kLeftButton, 7, 7), Log{}) << "a label on a surface is not on the form";
  image.Visible = false;
  EXPECT_EQ(click(nullptr, kLeftButton, 105, 105), Log{"label click"});
}

TEST_F(Input, ALostPointerIsAReleaseWithoutAClickWhereItWasLast) {
  pointer.Lose();
  pointer.Press(nullptr, kLeftButton, 0, 105, 105);
  pointer.Lose();
  EXPECT_EQ(Taken(), Log{"image up 1 at 5,5"});
  pointer.Press(&pad, kRightButton, 0, 30, 30);
  pointer.Move(nullptr, 0, 60, 61);
  pointer.Lose();
  pointer.Release(kRightButton, 0, 60, 61);
  EXPECT_EQ(Taken(), (Log{"pad down 2 at 30,30", "pad move 2 at 60,61", "pad up 2 at 60,61"}));
  pad.MouseUp = [&](Integer, Integer, float, float) {
    pointer.Lose();  // as when a handler shows a box
    log.push_back("up");
  };
  pointer.Press(&pad, kLeftButton, 0, 1, 30);
  pointer.Lose();
  EXPECT_EQ(Taken(), (Log{"pad down 1 at 1,30", "up"}));
}

}  // namespace
}  // namespace sorvex
