// SPDX-License-Identifier: MIT
// What follows from what happens to a form's window: focus, keys, timers, sizes, closing.
#include "platform/form_controller.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/headless/headless_desktop.h"

namespace sorvex {
namespace {

// A surface and three buttons, visited in this order: pad, first, ok (for Enter), no (for Esc).
class Controlled : public testing::Test {
 protected:
  Controlled() {
    form.Controls = {&no, &ok, &first, &pad, &image, &timer};
    for (int i = 0; Control * control : std::vector<Control*>{&pad, &first, &ok, &no}) control->TabIndex = i++;
    for (CommandButton* button : {&first, &ok, &no}) button->Click = [this, button] { log += button->Caption; };
    first.Caption = "&First";
    ok.Caption = "&Ändern";
    no.Caption = "No&";
    ok.Default = no.Cancel = true;
    image.Commands = {{"Tell", 2, [this] { log += "F2"; }}};
    timer.Interval = 500;
    timer.Tick = [this] { log += "tick"; };
    form.Unload = [this] { log += form.Loaded ? "unload" : "late"; };
    form.Loaded = true;
  }
  // What the handlers noted down while something happened and the window was brought up to date.
  std::string After(const std::function<void(FormController&)>& happens = [](FormController&) {}) {
    runner.Serve([&] {
      happens(window.Controller);
      window.Controller.Sync();
    });
    return std::exchange(log, {});
  }

  Form form;
  PictureBox pad;
  CommandButton first, ok, no;
  Image image;
  Timer timer;
  std::string log;
  HeadlessDesktop desktop{""};
  HandlerRunner runner{[] {}};
  HeadlessWindow window{form, desktop, runner};
};

TEST_F(Controlled, TabLeadsRoundAndEnterMeansTheButtonThatIsMarked) {
  After();
  EXPECT_EQ(After(&FormController::FocusFirst), "");
  for (const Control* expected : std::vector<Control*>{&pad, &first, &ok, &no, &pad}) {
    EXPECT_EQ(window.Focused, expected);
    const CommandButton* meant = expected == &pad ? &ok : dynamic_cast<const CommandButton*>(expected);
    EXPECT_EQ(window.Marked, meant);
    EXPECT_EQ(After([](auto& controller) { EXPECT_TRUE(controller.Enter()); }), meant->Caption);
    EXPECT_EQ(After([](auto& controller) { EXPECT_TRUE(controller.Escape()); }), no.Caption);
    EXPECT_EQ(After([](auto& controller) { EXPECT_TRUE(controller.Tab(true)); }), "");
  }
  After([](auto& controller) { controller.Tab(false); });
  EXPECT_EQ(window.Focused, &pad);
}

TEST_F(Controlled, FocusThatVanishesGoesBackAndAButtonSeenForTheFirstTimeIsMarked) {
  ok.Visible = false;
  window.Focused = &no;
  After();
  EXPECT_EQ(window.Marked, &no);
  no.Visible = false;
  ok.Visible = true;
  After();
  EXPECT_EQ(window.Focused, &ok);
  EXPECT_EQ(window.Marked, &ok);
  EXPECT_EQ(After([](auto& controller) { EXPECT_FALSE(controller.Escape()); }), "");
  ok.Visible = first.Visible = pad.Visible = false;
  After();
  EXPECT_EQ(window.Focused, nullptr);
  EXPECT_EQ(After([](auto& controller) { EXPECT_FALSE(controller.Enter() || controller.Tab(true)); }), "");
}

TEST_F(Controlled, AccessAndFunctionKeysActWhereverTheFocusIs) {
  const auto access = [&](const std::string& key) {
    return After([&](auto& controller) { log += controller.AccessKey(key) ? "" : "nothing"; });
  };
  EXPECT_EQ(access("f"), first.Caption);
  EXPECT_EQ(window.Focused, &first);
  EXPECT_EQ(access("Ä"), ok.Caption);
  for (const std::string key : {"i", "n", "&", ""}) EXPECT_EQ(access(key), "nothing") << key;
  first.Visible = false;
  EXPECT_EQ(access("F"), "nothing");
  EXPECT_EQ(After([](auto& controller) { EXPECT_TRUE(controller.FunctionKey(2) && !controller.FunctionKey(1)); }),
            "F2");
}

TEST_F(Controlled, TheTimerIsSetToTheNextDueOneAlsoWhereTheTickCountWraps) {
  desktop.Now = std::numeric_limits<Long>::max() - 100;
  timer.Start(desktop.Now);
  After();
  EXPECT_EQ(std::exchange(window.Timer, -1), 500);
  desktop.Now += 100;
  After();
  EXPECT_EQ(window.Timer, -1) << "it was set anew although it was right";
  EXPECT_EQ(After(&FormController::TimerFired), "");
  EXPECT_EQ(window.Timer, 400) << "it fired early";
  desktop.Now = static_cast<Long>(static_cast<std::uint32_t>(desktop.Now) + 400);
  EXPECT_EQ(After(&FormController::TimerFired), "tick");
  EXPECT_EQ(window.Timer, 500);
  timer.Enabled = false;
  After();
  EXPECT_EQ(window.Timer, std::nullopt);
}

TEST_F(Controlled, SizesAreExchangedBothWaysAndTheProgramsOwnAreKept) {
  After([](auto& controller) { controller.Resized({50, 50}); });  // before the window was laid out
  EXPECT_EQ(form.Width, 0);
  form.Width = 4000.5F;
  form.Height = 3000.5F;
  After();
  EXPECT_EQ(window.Client, (Size{259, 173}));
  const auto resized = [&](Size client) {
    window.Client = {};
    After([client](auto& controller) { controller.Resized(client); });
    EXPECT_EQ(window.Client, Size{}) << "the window was sent back its own size";
    return std::pair{form.Width, form.Height};
  };
  EXPECT_EQ(resized({100, 200}), std::pair(108 * 15.0F, 227 * 15.0F));
  EXPECT_EQ(resized({259, 173}), std::pair(4000.5F, 3000.5F));
  After([](auto& controller) { controller.Moved(-10, 30); });
  EXPECT_EQ(std::pair(form.Left, form.Top), std::pair(-14 * 15.0F, 7 * 15.0F));
}

}  // namespace
}  // namespace sorvex
