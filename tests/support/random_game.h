// SPDX-License-Identifier: MIT
// Random games on random themes, held against an independent model of the rules after every delivery of events.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <map>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "game/return_item.h"
#include "support/random_surfaces.h"
#include "support/rules_model.h"
#include "support/story.h"

namespace sorvex {

inline constexpr Size kRandomField{90, 70};

// A mask's size need not be its picture's.
inline Cutout RandomCutout(Random& random, Bitmap mask) {
  Size size = mask.Extent();
  if (random.Number(0, 7) == 0)
    size = {std::max(1, size.width + random.Number(-6, 6)), std::max(1, size.height + random.Number(-6, 6))};
  for (int specks = random.Number(0, 2) * random.Number(0, 2); specks > 0; --specks)
    mask.Row(random.Number(0, mask.Height() - 1))[random.Number(0, mask.Width() - 1)] = random.MaskPixel();
  return {random.Bitmap(size, random.Number(0, 1) == 0 ? Colors::Any : Colors::MaskLike), std::move(mask)};
}

// Mostly cups and solid items that fit into them, mostly at rest.
inline RulesTheme RandomTheme(Random& random) {
  const auto across = [&] { return random.Number(-12, kRandomField.width); };
  const auto down = [&] { return random.Number(-12, kRandomField.height); };
  RulesTheme theme{.targetX = across(),
                   .targetY = down(),
                   .target = RandomCutout(random, Bitmap({random.Number(4, 24), random.Number(4, 24)})),
                   .background = random.Bitmap(kRandomField, Colors::Any)};
  for (int count = std::min(random.Number(1, 6), random.Number(1, 6)); count > 0; --count) {
    const Size size{random.Number(2, 14), random.Number(2, 14)};
    const Size around{size.width + random.Number(6, 20), size.height + random.Number(2, 20)};
    RulesItem item{across(),
                   down(),
                   across(),
                   down(),
                   RandomCutout(random, Bitmap(size)),
                   RandomCutout(random, CupMask(around, random.Number(1, 4)))};
    if (random.Number(0, 3) > 0) {
      item.x = item.contX + 5;
      item.y = item.contY + around.height - 5 - size.height;
    }
    theme.items.push_back(std::move(item));
  }
  return theme;
}

// Its times are too good for any to be recorded.
inline void Write(const RulesTheme& theme, const std::filesystem::path& folder) {
  const auto write = [&](const std::string& picture, const std::string& mask, const Cutout& cutout) {
    WriteFile(folder / picture, BmpBytes(cutout.picture));
    WriteFile(folder / mask, BmpBytes(cutout.mask));
  };
  std::ostringstream places;
  for (std::size_t i = 0; i < theme.items.size(); ++i) {
    const RulesItem& item = theme.items[i];
    const std::string file = std::to_string(i) + ".bmp";
    places << item.x << "\n" << item.y << "\n" << item.contX << "\n" << item.contY << "\n";
    write("ss" + file, "sm" + file, item.look);
    write("cs" + file, "cm" + file, item.container);
  }
  write("pS.bmp", "pM.bmp", theme.target);
  WriteFile(folder / "bg.bmp", BmpBytes(theme.background));
  WriteFile(folder / "Theme.ini", places.str());
  WriteFile(folder / "Theme2.ini", std::to_string(theme.targetX) + "," + std::to_string(theme.targetY));
  WriteFile(folder / "HighScores.ini", HighScoreFile(std::vector<std::string>(10, "0")));
}

class RandomGame {
  using Kind = RulesEvent::Kind;

 public:
  /// `random` makes every choice. `counts` takes how often each sound was played and frames and boxes were shown.
  RandomGame(Random random, std::map<std::string, int>& counts) : random_(std::move(random)), counts_(counts) {
    story_.state.ThemeName = "Random";
    Write(theme_, story_.ThemeFile("", story_.state.ThemeName));
    story_.desktop.KeepFrames = true;
  }

  void Play(int deliveries) {
    for (int step = 0; step < deliveries; ++step)
      story_.Then([=, this] {
        SCOPED_TRACE(testing::Message() << "game of SORVEX_SEED=" << random_.Seed << ", step " << step);
        model_.Frame();
        Compare();
        if (testing::Test::HasFailure()) throw ScriptEnded{};
        // The model comes first: a Start returns only when its game is over, many deliveries later.
        const std::vector<RulesEvent> events = NextEvents();
        for (const RulesEvent& event : events) model_.Handle(event);
        for (const RulesEvent& event : events) DoInGame(event);
      });
    story_.Run();
  }

 private:
  void Compare() {
    const std::vector<std::string> log = std::exchange(model_.log, {});
    EXPECT_EQ(LogOfGame(), log);
    for (const std::string& entry : log) ++counts_[entry.substr(0, entry.find(' '))];
    const modVariables& state = story_.state;
    const frmMain& form = story_.form;
    EXPECT_EQ(std::tuple(state.CurItem, state.CurCont, form.MouseHeld, form.Dragging, IsLockedOut(form),
                         form.lblTime.Visible, form.lblTime.Caption),
              std::tuple(model_.curItem, model_.curCont, model_.mouseHeld, model_.dragging, model_.lockedOut,
                         model_.clockShown, model_.clock));
    for (int i = 0; const RulesItem& item : model_.items) {
      EXPECT_EQ(std::tuple(state.ItemX(i), state.ItemY(i), state.ItemInPlay(i), state.ContInPlay(i)),
                std::tuple(item.x, item.y, item.itemInPlay, item.contInPlay))
          << "item " << i;
      ++i;
    }
    EXPECT_TRUE(model_.field == Bitmap() || model_.field == story_.Field());
  }

  // Sounds and frames in their order. The game need not show again what it has just shown.
  std::vector<std::string> LogOfGame() {
    HeadlessDesktop& desktop = story_.desktop;
    std::vector<std::string> log;
    auto wave = desktop.Waves.begin();
    for (int shown = 0; shown <= desktop.FramesShown; ++shown) {
      for (; wave != desktop.Waves.end() && wave->afterFrames == shown; ++wave)
        log.push_back(std::filesystem::path(wave->path).stem().string());
      if (shown == desktop.FramesShown) break;
      std::string name = NameOfFrame(desktop.Frames[static_cast<std::size_t>(shown)]);
      if (name == lastFrame_) continue;
      log.push_back(lastFrame_ = std::move(name));
    }
    for (const HeadlessDesktop::Box& box : desktop.Boxes) log.push_back(box.text);
    desktop.FramesShown = 0;
    desktop.Frames.clear();
    desktop.Waves.clear();
    desktop.Boxes.clear();
    return log;
  }

  void DoInGame(const RulesEvent& event) {
    const auto button = static_cast<Integer>(event.value);
    switch (event.kind) {
      case Kind::Move: return story_.pointer.Move(&story_.form.PicCanvas, 0, event.x, event.y);
      case Kind::Press: return story_.pointer.Press(&story_.form.PicCanvas, button, 0, event.x, event.y);
      case Kind::Release: return story_.pointer.Release(button, 0, event.x, event.y);
      case Kind::Lose: return story_.pointer.Lose();
      case Kind::Clock: return story_.form.Image1.Click();
      case Kind::Wait: story_.desktop.Now += event.value; return;
      case Kind::Start: return story_.form.Command1.Click();
    }
  }

  // Some of what the player has in mind. Presses and movements come only while a game runs, a Start comes last.
  std::vector<RulesEvent> NextEvents() {
    if (model_.phase == RulesModel::Phase::Idle) return {{Kind::Start}};
    if (model_.phase == RulesModel::Phase::Loading)
      return {OneOf<RulesEvent>({{Kind::Release, kLeftButton}, {Kind::Clock}, {Kind::Wait, 510}, {Kind::Start}})};
    std::vector<RulesEvent> events;
    for (int count = OneOf({0, 1, 1, 1, 2, 9}); count > 0; --count) {
      if (plan_.empty()) MakePlan();
      events.push_back(plan_.front());
      plan_.pop_front();
      if (events.back().kind == Kind::Start) break;
    }
    return events;
  }

  // To hover, pick up, drag and let go, or some single thing; then perhaps to wait.
  void MakePlan() {
    const RulesItem& item = model_.items[static_cast<std::size_t>(random_.Number(0, story_.state.LastItem))];
    const int button = OneOf({kLeftButton, kLeftButton, kRightButton});
    if (random_.Number(0, 3) > 0) {
      const RulesEvent press = At(Kind::Press, item.x, item.y, item.look.picture, kLeftButton);
      const RulesEvent grab{Kind::Move, 0, press.x, press.y};
      plan_ = {At(Kind::Move, item.contX, item.contY, item.container.picture),
               press,
               grab,
               Drag(item, press),
               Drag(item, press),
               {Kind::Release, button}};
      plan_.resize(static_cast<std::size_t>(random_.Number(4, 6)));
    } else {
      plan_ = {OneOf<RulesEvent>({{Kind::Lose},
                                  {Kind::Clock},
                                  {Kind::Start},
                                  {Kind::Release, button},
                                  At(Kind::Press, 0, 0, theme_.background, button),
                                  At(Kind::Move, 0, 0, theme_.background)})};
    }
    if (random_.Number(0, 3) > 0) plan_.push_back({Kind::Wait, OneOf({1, 37, 499, 500})});
  }

  // A place on the picture, on its edge lines or one pixel outside.
  RulesEvent At(Kind kind, int left, int top, const Bitmap& picture, int value = 0) {
    const float part = OneOf({0.F, 0.F, 0.F, .5F});
    return {kind, value, static_cast<float>(left + random_.Number(-1, picture.Width() + 1)) + part,
            static_cast<float>(top + random_.Number(-1, picture.Height() + 1)) + part};
  }

  // Takes the item, held where it was pressed, to the target, about its container or anywhere.
  RulesEvent Drag(const RulesItem& item, const RulesEvent& press) {
    RulesEvent move = OneOf({At(Kind::Move, theme_.targetX, theme_.targetY, theme_.target.mask),
                             At(Kind::Move, theme_.targetX, theme_.targetY, theme_.target.mask),
                             At(Kind::Move, item.contX, item.contY, item.container.picture),
                             At(Kind::Move, 0, 0, theme_.background)});
    move.x += press.x - static_cast<float>(item.x + item.look.mask.Width() / 2);
    move.y += press.y - static_cast<float>(item.y + item.look.mask.Height() / 2);
    return move;
  }

  template <class T>
  T OneOf(std::initializer_list<T> some) {
    return some.begin()[random_.Number(0, static_cast<int>(some.size()) - 1)];
  }

  Random random_;
  std::map<std::string, int>& counts_;
  RulesTheme theme_ = RandomTheme(random_);
  RulesModel model_{theme_};
  Story story_{{CupTheme(0)}};
  std::deque<RulesEvent> plan_;
  std::string lastFrame_;
};

}  // namespace sorvex
