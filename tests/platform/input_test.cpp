// SPDX-License-Identifier: MIT
// Input made clean: who gets a pointer event, what a lost pointer means, when timers tick.
#include "platform/input.h"

#include <gtest/gtest.h>

#include <limits>

namespace sorvex {
namespace {

using Log = std::vector<std::string>;

// A surface with a label on it, and an image over a label on the form itself.
struct PadForm : Form {
  PadForm() {
    Controls = {&pad, &image, &label, &onPad, &timer};
    Place(pad, 0, 0, 50, 50);
    Place(image, 100, 100, 20, 20);
    Place(label, 95, 95, 40, 40);
    Place(onPad, 5, 5, 10, 10);
    onPad.Container = &pad;
    pad.MouseDown = Note("pad down");
    pad.MouseMove = Note("pad move");
    pad.MouseUp = Note("pad up");
    image.MouseDown = Note("image down");
    image.MouseUp = Note("image up");
    image.Click = [this] { log.push_back("image click"); };
    label.Click = [this] { log.push_back("label click"); };
    onPad.Click = [this] { log.push_back("onPad click"); };
    timer.Interval = 500;
    timer.Tick = [this] { log.push_back("tick"); };
  }
  static void Place(Control& control, float left, float top, float width, float height) {
    control.Left = left;
    control.Top = top;
    control.Width = width;
    control.Height = height;
  }
  PointerEvent Note(const std::string& what) {
    return [this, what](Integer button, Integer, float x, float y) {
      log.push_back(what + " " + std::to_string(button) + " at " + std::to_string(static_cast<int>(x)) + "," +
                    std::to_string(static_cast<int>(y)));
    };
  }
  Log Taken() { return std::exchange(log, {}); }

  PictureBox pad;
  Image image;
  Label label, onPad;
  Timer timer;
  Log log;
};

class Input : public testing::Test {
 protected:
  PadForm form;
  PointerInput pointer{form};
};

TEST_F(Input, WhilePressedAllEventsBelongToThePressedControl) {
  pointer.Press(&form.pad, kLeftButton, 0, 30, 30);
  pointer.Move(nullptr, 0, -200, 105);
  pointer.Press(nullptr, kRightButton, 0, 105, 105);
  pointer.Release(kLeftButton, 0, 300, 30);
  pointer.Move(nullptr, 0, 105, 105);
  pointer.Release(kRightButton, 0, 7, 7);
  pointer.Move(&form.pad, 0, 40, 40);
  EXPECT_EQ(form.Taken(),
            (Log{"pad down 1 at 30,30", "pad move 1 at -200,105", "pad down 2 at 105,105", "pad up 1 at 300,30",
                 "pad move 2 at 105,105", "pad up 2 at 7,7", "pad move 0 at 40,40"}));
}

TEST_F(Input, AReleaseWithoutAPressReachesNobody) {
  pointer.Release(kLeftButton, 0, 30, 30);
  pointer.Lose();
  EXPECT_EQ(form.Taken(), Log{});
}

TEST_F(Input, AClickIsALeftReleaseOnTheControlPressed) {
  const auto click = [&](PictureBox* on, Integer button, float x, float y, float upX, float upY) {
    pointer.Press(on, button, 0, x, y);
    pointer.Release(button, 0, upX, upY);
    return form.Taken();
  };
  EXPECT_EQ(click(nullptr, kLeftButton, 105, 105, 119, 119),
            (Log{"image down 1 at 5,5", "image up 1 at 19,19", "image click"}));
  EXPECT_EQ(click(nullptr, kLeftButton, 105, 105, 120, 119), (Log{"image down 1 at 5,5", "image up 1 at 20,19"}));
  EXPECT_EQ(click(nullptr, kRightButton, 105, 105, 105, 105), (Log{"image down 2 at 5,5", "image up 2 at 5,5"}));
  EXPECT_EQ(click(nullptr, kLeftButton, 97, 97, 97, 97), Log{"label click"});
  EXPECT_EQ(click(&form.pad, kLeftButton, 7, 7, 7, 7), Log{"onPad click"});
  EXPECT_EQ(click(nullptr, kLeftButton, 7, 7, 7, 7), Log{}) << "a label on a surface is not on the form";
  form.image.Visible = false;
  EXPECT_EQ(click(nullptr, kLeftButton, 105, 105, 105, 105), Log{"label click"});
}

TEST_F(Input, ALostPointerIsAReleaseWithoutAClick) {
  pointer.Press(nullptr, kLeftButton, 0, 105, 105);
  pointer.Lose();
  EXPECT_EQ(form.Taken(), (Log{"image down 1 at 5,5", "image up 1 at 5,5"}));
  pointer.Press(&form.pad, kRightButton, 0, 30, 30);
  pointer.Move(nullptr, 0, 60, 61);
  pointer.Lose();
  pointer.Release(kRightButton, 0, 60, 61);
  EXPECT_EQ(form.Taken(), (Log{"pad down 2 at 30,30", "pad move 2 at 60,61", "pad up 2 at 60,61"}));
}

TEST_F(Input, AHandlerMayLosePointerInsideARelease) {
  form.pad.MouseUp = [&](Integer, Integer, float, float) {
    pointer.Lose();
    form.log.push_back("up");
  };
  pointer.Press(&form.pad, kLeftButton, 0, 1, 30);
  pointer.Lose();
  EXPECT_EQ(form.Taken(), (Log{"pad down 1 at 1,30", "up"}));
}

TEST_F(Input, TimersTickOnceWhenDueAlsoWhereTheTickCountWraps) {
  for (const Long start : {Long{1000}, std::numeric_limits<Long>::max() - 100}) {
    const auto after = [&](Long milliseconds) {
      return static_cast<Long>(static_cast<std::uint32_t>(start) + static_cast<std::uint32_t>(milliseconds));
    };
    form.timer.Start(start);
    EXPECT_EQ(NextTimer(form, after(100)), 400);
    RunDueTimers(form, after(499));
    EXPECT_EQ(form.Taken(), Log{});
    EXPECT_EQ(NextTimer(form, after(2000)), 0);
    RunDueTimers(form, after(2000));
    EXPECT_EQ(form.Taken(), Log{"tick"});
    EXPECT_EQ(NextTimer(form, after(2000)), 500);
    form.timer.Enabled = false;
    RunDueTimers(form, after(9000));
    EXPECT_EQ(form.Taken(), Log{});
    EXPECT_EQ(NextTimer(form, after(9000)), std::nullopt);
  }
}

}  // namespace
}  // namespace sorvex
