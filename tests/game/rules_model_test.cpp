// SPDX-License-Identifier: MIT
// Random games on random themes, held against an independent model of the rules after every delivery of events.
#include "support/rules_model.h"

#include <gtest/gtest.h>

#include <deque>
#include <sstream>
#include <string>
#include <vector>

#include "game/return_item.h"
#include "support/random_surfaces.h"
#include "support/story.h"

namespace sorvex {
namespace {

using Kind = RulesEvent::Kind;
using Phase = RulesState::Phase;

constexpr Size kField{90, 70};

// A mask's size need not be its picture's.
Cutout RandomCutout(Random& random, Bitmap mask) {
  Size size = mask.Extent();
  if (random.Number(0, 7) == 0)
    size = {std::max(1, size.width + random.Number(-6, 6)), std::max(1, size.height + random.Number(-6, 6))};
  for (int specks = random.Number(0, 3) * random.Number(0, 3); specks > 0; --specks)
    mask.Row(random.Number(0, mask.Height() - 1))[random.Number(0, mask.Width() - 1)] = random.MaskPixel();
  return {random.Bitmap(size, random.Number(0, 1) == 0 ? Colours::Any : Colours::MaskLike), std::move(mask)};
}

// Mostly cups and solid items that fit into them, mostly at rest.
RulesTheme RandomTheme(Random& random) {
  RulesTheme theme{{},
                   random.Number(-9, kField.width),
                   random.Number(-9, kField.height),
                   RandomCutout(random, Bitmap({random.Number(4, 24), random.Number(4, 24)})),
                   random.Bitmap(kField, Colours::Any)};
  for (int count = std::min(random.Number(1, 6), random.Number(1, 6)); count > 0; --count) {
    RulesItem item{0,
                   0,
                   random.Number(-12, kField.width - 8),
                   random.Number(-12, kField.height - 8),
                   RandomCutout(random, Bitmap({random.Number(2, 14), random.Number(2, 14)})),
                   RandomCutout(random, CupMask({random.Number(12, 34), random.Number(12, 34)}, random.Number(1, 4)))};
    const bool atRest = random.Number(0, 3) > 0;
    item.x = atRest ? item.contX + 5 : random.Number(-9, kField.width);
    item.y = atRest ? item.contY + item.container.picture.Height() - 5 - item.look.picture.Height()
                    : random.Number(-9, kField.height);
    theme.items.push_back(std::move(item));
  }
  return theme;
}

// Puts the theme in the place of the story's own.
void WriteOver(const Story& story, const RulesTheme& theme) {
  const auto write = [&](const std::string& picture, const std::string& mask, const Cutout& cutout) {
    WriteFile(story.ThemeFile(picture), BmpBytes(cutout.picture));
    WriteFile(story.ThemeFile(mask), BmpBytes(cutout.mask));
  };
  std::ostringstream places;
  for (std::size_t i = 0; i < theme.items.size(); ++i) {
    const RulesItem& item = theme.items[i];
    const std::string file = std::to_string(i) + ".bmp";
    places << item.x << "\n" << item.y << "\n" << item.contX << "\n" << item.contY << "\n";
    write("ss" + file, "sm" + file, item.look);
    write("cs" + file, "cm" + file, item.container);
  }
  WriteFile(story.ThemeFile("Theme.ini"), places.str());
  WriteFile(story.ThemeFile("Theme2.ini"), std::to_string(theme.targetX) + "," + std::to_string(theme.targetY));
  write("pS.bmp", "pM.bmp", theme.target);
  WriteFile(story.ThemeFile("bg.bmp"), BmpBytes(theme.background));
}

struct Counts {
  int drags = 0, contacts = 0, putIns = 0, letGoes = 0, finished = 0;
};

class RandomGame {
 public:
  RandomGame(unsigned seed, Counts& counts) : random_(seed), counts_(counts) {
    WriteOver(story_, theme_);
    story_.desktop.KeepFrames = true;
  }

  void Play(int deliveries) {
    for (int step = 0; step < deliveries; ++step)
      story_.Then([=, this] {
        SCOPED_TRACE(testing::Message() << "game of SORVEX_SEED=" << random_.Seed << ", step " << step);
        model_.Frame();
        Compare();
        if (testing::Test::HasFailure()) throw ScriptEnded{};
        Deliver(NextEvents());
      });
    story_.Run();
    counts_.finished += static_cast<int>(model_.Now().boxes.size());
  }

 private:
  void Compare() {
    const std::size_t heard = model_.Now().log.size();
    EXPECT_EQ(LogOfGame(),
              std::vector(model_.Now().log.begin() + static_cast<std::ptrdiff_t>(compared_), model_.Now().log.end()));
    for (; compared_ < heard; ++compared_) {
      counts_.contacts += model_.Now().log[compared_] == "HitTube" ? 1 : 0;
      counts_.putIns += model_.Now().log[compared_] == "PutInCont" ? 1 : 0;
      counts_.letGoes += model_.Now().log[compared_] == "LetGo" ? 1 : 0;
    }
    EXPECT_EQ(GameState(), ModelState());
    EXPECT_TRUE(model_.Now().field == Bitmap() || story_.Field() == model_.Now().field);
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
      std::string name = RulesModel::NameOf(desktop.Frames[static_cast<std::size_t>(shown)]);
      if (name == lastFrame_) continue;
      log.push_back(lastFrame_ = std::move(name));
    }
    desktop.FramesShown = 0;
    desktop.Frames.clear();
    desktop.Waves.clear();
    return log;
  }

  std::string GameState() const {
    const modVariables& state = story_.state;
    const frmMain& form = story_.form;
    std::ostringstream text;
    text << state.CurItem << " " << state.CurCont << (form.MouseHeld ? " held" : "")
         << (form.Dragging ? " dragging" : "") << (IsLockedOut(form) ? " locked out" : "")
         << (form.lblTime.Visible ? " shown " : " hidden ") << form.lblTime.Caption;
    for (Long i = 0; i <= state.LastItem; ++i)
      text << "; " << state.ItemX(i) << ", " << state.ItemY(i) << (state.ItemInPlay(i) ? " item" : "")
           << (state.ContInPlay(i) ? " container" : "");
    for (const HeadlessDesktop::Box& box : story_.desktop.Boxes) text << "; " << box.text;
    return text.str();
  }

  std::string ModelState() const {
    const RulesState& state = model_.Now();
    std::ostringstream text;
    text << state.curItem << " " << state.curCont << (state.mouseHeld ? " held" : "")
         << (state.dragging ? " dragging" : "") << (state.lockedOut ? " locked out" : "")
         << (state.clockShown ? " shown " : " hidden ") << state.clock;
    for (const RulesItem& item : state.items)
      text << "; " << item.x << ", " << item.y << (item.itemInPlay ? " item" : "")
           << (item.contInPlay ? " container" : "");
    for (const std::string& box : state.boxes) text << "; " << box;
    return text.str();
  }

  // The model comes first: a Start returns only when its game is over, many deliveries later.
  void Deliver(const std::vector<RulesEvent>& events) {
    const bool dragged = model_.Now().dragging;
    model_.Deliver(events);
    counts_.drags += !dragged && model_.Now().dragging ? 1 : 0;
    for (const RulesEvent& event : events) DoInGame(event);
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
    const Phase phase = model_.Now().phase;
    if (phase == Phase::Idle) return {{Kind::Start}};
    if (phase == Phase::Loading) {
      const RulesEvent whileLoading[] = {{Kind::Release, kLeftButton}, {Kind::Clock}, {Kind::Wait, 300}, {Kind::Start}};
      return {whileLoading[random_.Number(0, 3)]};
    }
    std::vector<RulesEvent> events;
    for (int count = random_.Number(0, 9) == 0 ? 9 : random_.Number(0, 2); count > 0; --count) {
      if (plan_.empty()) MakePlan();
      events.push_back(plan_.front());
      plan_.pop_front();
      if (events.back().kind == Kind::Start) break;
    }
    return events;
  }

  void MakePlan() {
    const auto count = static_cast<int>(model_.Now().items.size());
    const RulesItem& item = model_.Now().items[static_cast<std::size_t>(random_.Number(0, count - 1))];
    const Integer button = random_.Number(0, 9) == 0 ? kRightButton : kLeftButton;
    if (random_.Number(0, 3) > 0) {
      // Hover, pick up, drag, let go.
      const RulesEvent grab = At(Kind::Press, item.x, item.y, item.look.picture.Extent());
      plan_ = {At(Kind::Move, item.contX, item.contY, item.container.picture.Extent()), grab, grab};
      plan_[1].value = random_.Number(0, 9) == 0 ? kRightButton : kLeftButton;
      plan_[2].kind = Kind::Move;
      for (int moves = random_.Number(1, 2); moves > 0; --moves) plan_.push_back(Drag(item, grab));
      if (random_.Number(0, 3) > 0) plan_.push_back({Kind::Release, button});
    } else {
      const RulesEvent others[] = {{Kind::Lose},
                                   {Kind::Clock},
                                   {Kind::Release, button},
                                   At(Kind::Move, 0, 0, kField),
                                   At(Kind::Press, 0, 0, kField, button),
                                   {Kind::Start}};
      plan_ = {others[random_.Number(0, random_.Number(0, 9) == 0 ? 5 : 4)]};
    }
    if (random_.Number(0, 1) == 0) plan_.push_back({Kind::Wait, random_.Number(0, 700)});
  }

  // A place in the rectangle, on its edges or one pixel outside.
  RulesEvent At(Kind kind, int left, int top, Size size, int value = 0) {
    const float part = random_.Number(0, 4) == 0 ? .5F : 0;
    return {kind, value, static_cast<float>(left + random_.Number(-1, size.width + 1)) + part,
            static_cast<float>(top + random_.Number(-1, size.height + 1)) + part};
  }

  // Takes the item, held where it was grabbed, to the target, about its container or anywhere.
  RulesEvent Drag(const RulesItem& item, const RulesEvent& grab) {
    const int where = random_.Number(0, 4);
    if (where == 0) return At(Kind::Move, 0, 0, kField);
    RulesEvent move = where == 1 ? At(Kind::Move, item.contX, item.contY, item.container.picture.Extent())
                                 : At(Kind::Move, theme_.targetX, theme_.targetY, theme_.target.mask.Extent());
    move.x += grab.x - static_cast<float>(item.x + item.look.mask.Width() / 2);
    move.y += grab.y - static_cast<float>(item.y + item.look.mask.Height() / 2);
    return move;
  }

  Random random_;
  Counts& counts_;
  RulesTheme theme_ = RandomTheme(random_);
  RulesModel model_{theme_};
  Story story_{{CupTheme(0)}};
  std::deque<RulesEvent> plan_;
  std::string lastFrame_;
  std::size_t compared_ = 0;
};

TEST(TheRules, AreThoseOfThePlainModelInEveryFrame) {
  const Random random;
  Counts counts;
  for (unsigned game = 0; game < 60 && !HasFailure(); ++game) RandomGame(random.Seed + game, counts).Play(150);
  EXPECT_GT(counts.drags, 50);
  EXPECT_GT(counts.contacts, 100);
  EXPECT_GT(counts.putIns, 10);
  EXPECT_GT(counts.letGoes, 50);
  EXPECT_GT(counts.finished, 3);
}

}  // namespace
}  // namespace sorvex
