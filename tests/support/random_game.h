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

#include "forms/choose_theme_window.h"
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
  const Size field = random.OneOf<Size>({kRandomField, {64, 56}});
  RulesTheme theme{.targetX = across(),
                   .targetY = down(),
                   .target = RandomCutout(random, Bitmap({random.Number(4, 24), random.Number(4, 24)})),
                   .background = random.Bitmap(field, Colors::Any)};
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
  const int kept = random.OneOf({0, 3, 10});
  const int step = random.Number(0, 1);
  for (int i = 0; i < 10; ++i) {
    const std::string n = std::to_string(i);
    theme.rows.push_back(i < kept ? "P" + n + "|01/02/03|" + std::to_string(i * step) : "Nobody|00/00/00|100");
  }
  return theme;
}

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
  std::string rows;
  for (std::string row : theme.rows) {
    for (std::size_t bar; (bar = row.find('|')) != row.npos;) row.replace(bar, 1, "\"\r\n\"");
    rows += '"' + row + "\"\r\n";
  }
  WriteFile(folder / "HighScores.ini", rows);
}

class RandomGame {
  using Kind = RulesEvent::Kind;

 public:
  /// `random` makes every choice. `counts` takes how often each sound was played and frames and boxes were shown.
  RandomGame(Random random, std::map<std::string, int>& counts) : random_(std::move(random)), counts_(counts) {
    for (int i = 0; const RulesTheme& theme : themes_) Write(theme, story_.ThemeFile("", names_[i++]));
    std::filesystem::create_directory(story_.ThemeFile("", "Empty"));
    story_.state.ThemeName = names_[model_.theme];
    story_.desktop.Boxes.clear();
    story_.desktop.KeepFrames = true;
    story_.desktop.WhileBoxOpen = [this](const HeadlessDesktop::Box& box) { During(box.text); };
    story_.desktop.TypeName = [this] { return During("What is your name?"); };
  }

  void Play(int deliveries) {
    for (int step = 0; step < deliveries; ++step)
      story_.Then([=, this] {
        SCOPED_TRACE(testing::Message() << "game of SORVEX_SEED=" << random_.Seed << ", step " << step);
        EXPECT_FALSE(closed_);
        model_.Frame();
        Compare();
        if (testing::Test::HasFailure()) throw ScriptEnded{};
        for (const RulesEvent& event : NextEvents()) {
          // Here the model comes first: a Start returns only when its game is over, many deliveries later.
          if (Meaning(event).kind == Kind::Start) {
            model_.Handle({Kind::Start});
            return DoInGame(event);
          }
          const RulesEvent done = Do(event);
          if (closed_) return;
          model_.Handle(done);
        }
      });
    const Story::End end = story_.Run();
    EXPECT_TRUE(end == (closed_ ? Story::End::ProgramEnded : Story::End::ScriptEnded));
  }

 private:
  using Phase = RulesModel::Phase;
  enum Key : int { kClose, kAbout, kDetails, kChoose, kTab, kTabBack, kEnter, kEscape, kAltS, kAltH };

  void Compare() {
    const std::vector<std::string> log = std::exchange(model_.log, {});
    GatherLog();
    EXPECT_EQ(std::exchange(log_, {}), log);
    for (const std::string& entry : log) ++counts_[entry.substr(0, entry.find(' '))];
    const modVariables& state = story_.state;
    const frmMain& form = story_.form;
    EXPECT_EQ(
        std::tuple(state.CurItem, state.CurCont, form.MouseHeld, form.Dragging, IsLockedOut(form), form.lblTime.Visible,
                   form.lblTime.Caption, form.picHighScores.Visible, state.StartCommand == modVariables::Start::Idle),
        std::tuple(model_.curItem, model_.curCont, model_.mouseHeld, model_.dragging, model_.lockedOut,
                   model_.clockShown, model_.clock, model_.panelShown, model_.phase == Phase::Idle));
    for (int i = 0; const RulesItem& item : model_.items) {
      EXPECT_EQ(std::tuple(state.ItemX(i), state.ItemY(i), state.ItemInPlay(i), state.ContInPlay(i)),
                std::tuple(item.x, item.y, item.itemInPlay, item.contInPlay))
          << "item " << i;
      ++i;
    }
    const Control* focused = story_.desktop.FrontWindow().Focused;
    EXPECT_TRUE(focused == nullptr || IsShown(*focused));
    if (model_.field == Bitmap()) return;
    EXPECT_TRUE(model_.field == story_.Field());
    EXPECT_EQ(story_.Rows(), model_.Theme().rows);
    EXPECT_EQ(state.ThemeName, names_[model_.theme]);
  }

  // Sounds and frames in their order. The game need not show again what it has just shown.
  void GatherLog() {
    HeadlessDesktop& desktop = story_.desktop;
    auto wave = desktop.Waves.begin();
    for (int shown = 0; shown <= desktop.FramesShown; ++shown) {
      for (; wave != desktop.Waves.end() && wave->afterFrames == shown; ++wave)
        log_.push_back(std::filesystem::path(wave->path).stem().string());
      if (shown == desktop.FramesShown) break;
      std::string name = NameOfFrame(desktop.Frames[static_cast<std::size_t>(shown)]);
      if (name == lastFrame_) continue;
      log_.push_back(lastFrame_ = std::move(name));
    }
    desktop.FramesShown = 0;
    desktop.Frames.clear();
    desktop.Waves.clear();
  }

  // While a box is open; also when a chosen theme has been loaded.
  std::string During(const std::string& what) {
    GatherLog();
    log_.push_back(what);
    RulesBox& box = model_.boxes.emplace_back();
    for (int count = random_.OneOf({0, 0, 1, 3}); count > 0 && !closed_; --count) {
      RulesEvent event =
          random_.OneOf<RulesEvent>({{Kind::Wait, 510},
                                     {Kind::Lose},
                                     {Kind::Release, kLeftButton},
                                     At(Kind::Press, 0, 0, model_.Theme().background, kLeftButton),
                                     At(Kind::Move, 0, 0, model_.Theme().background),
                                     {Kind::Start},
                                     {Kind::Key, random_.OneOf<int>({kChoose, kChoose, kChoose, kClose})}});
      if (event.kind == Kind::Start && story_.state.StartCommand == modVariables::Start::Idle) continue;
      if (event.kind == Kind::Key && choosing_) continue;
      box.events.push_back(Do(event));
    }
    return box.answer = random_.OneOf<const char*>({"", "Ann", "Zo\u00EB, \u65E5"});
  }

  // What a key stands for.
  RulesEvent Meaning(const RulesEvent& event) const {
    if (event.kind != Kind::Key) return event;
    const Control* focused = story_.desktop.FrontWindow().Focused;
    switch (event.value) {
      case kAbout: return {Kind::About};
      case kDetails: return {Kind::Details};
      case kChoose: return {Kind::Choose};
      case kEnter:
        if (focused != &story_.form.Command1) return {Kind::Panel, focused != &story_.form.cmdHideScores};
        [[fallthrough]];
      case kAltS: return {Kind::Start};
      case kAltH: return {Kind::Panel, 1};
      default: return event;
    }
  }

  // Does it in the game and returns what it means to the model.
  RulesEvent Do(const RulesEvent& event) {
    RulesEvent meaning = Meaning(event);
    DoInGame(event);
    if (meaning.kind == Kind::Choose) meaning.value = chosen_;
    return meaning;
  }

  void Press(int key) {
    FormController& window = story_.desktop.FrontWindow().Controller;
    std::deque<std::function<void()>>& script = story_.desktop.Script;
    switch (key) {
      case kClose: closed_ = true; return window.Close();
      case kTab:
      case kTabBack: window.Tab(key == kTab); return;
      case kEnter: window.Enter(); return;
      case kEscape: window.Escape(); return;
      case kAltS: window.AccessKey("s"); return;
      case kAltH: window.AccessKey("H"); return;
      case kAbout: script.push_front([this] { Leave(); }); break;
      case kChoose: script.push_front([this] { ChooseTheme(); }); break;
    }
    choosing_ = key == kChoose;
    window.FunctionKey(key);
    choosing_ = false;
  }

  // Closes the box in front in some way.
  void Leave() {
    FormController& window = story_.desktop.FrontWindow().Controller;
    if (random_.Number(0, 1) == 0)
      window.Escape();
    else
      window.Close();
  }

  // The window that opens takes the capture away. Enter does nothing before something is selected.
  void ChooseTheme() {
    story_.pointer.Lose();
    FormController& window = story_.desktop.FrontWindow().Controller;
    auto& form = dynamic_cast<frmChooseTheme&>(window.ShownForm());
    window.Enter();
    chosen_ = random_.Number(-1, 2);
    if (chosen_ == 2) {
      chosen_ = story_.state.ThemeName == names_[0] ? 0 : 1;  // the model is still before this box
      Leave();
    } else {
      const std::string name = chosen_ == kNoTheme ? "Empty" : names_[chosen_];
      form.List1.ListIndex = static_cast<int>(std::ranges::find(form.List1.List, name) - form.List1.List.begin());
      window.Enter();
    }
    if (chosen_ != kNoTheme || hasDefault_) story_.desktop.Script.push_front([this] { During("Loaded"); });
  }

  void DoInGame(const RulesEvent& event) {
    const auto button = static_cast<Integer>(event.value);
    switch (event.kind) {
      case Kind::Move: return story_.pointer.Move(&story_.form.PicCanvas, 0, event.x, event.y);
      case Kind::Press:
        story_.desktop.FrontWindow().Focused = &story_.form.PicCanvas;
        return story_.pointer.Press(&story_.form.PicCanvas, button, 0, event.x, event.y);
      case Kind::Release: return story_.pointer.Release(button, 0, event.x, event.y);
      case Kind::Lose: return story_.pointer.Lose();
      case Kind::Clock: return story_.form.Image1.Click();
      case Kind::Wait: story_.desktop.Now += event.value; return;
      case Kind::Start: return story_.form.Command1.Click();
      default: return Press(event.value);
    }
  }

  // Some of what the player has in mind. A Start comes last.
  std::vector<RulesEvent> NextEvents() {
    if (model_.items.empty() || (model_.phase == Phase::Idle && random_.Number(0, 3) > 0)) return {{Kind::Start}};
    if (model_.phase == Phase::Loading)
      return {random_.OneOf<RulesEvent>(
          {{Kind::Release, kLeftButton}, {Kind::Clock}, {Kind::Wait, 510}, {Kind::Start}, {Kind::Key, kChoose}})};
    std::vector<RulesEvent> events;
    for (int count = random_.OneOf({0, 1, 1, 1, 2, 9}); count > 0; --count) {
      if (plan_.empty()) MakePlan();
      events.push_back(plan_.front());
      plan_.pop_front();
    }
    return events;
  }

  // To hover, pick up, drag and let go, or some single thing; then perhaps to wait.
  void MakePlan() {
    const RulesItem& item =
        model_.items[static_cast<std::size_t>(random_.Number(0, static_cast<int>(model_.items.size()) - 1))];
    const int button = random_.OneOf({kLeftButton, kLeftButton, kRightButton});
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
      plan_ = {random_.OneOf<RulesEvent>({{Kind::Lose},
                                          {Kind::Clock},
                                          {Kind::Start},
                                          {Kind::Release, button},
                                          At(Kind::Press, 0, 0, model_.Theme().background, button),
                                          At(Kind::Move, 0, 0, model_.Theme().background),
                                          {Kind::Key, random_.Number(kAbout, kAltH)},
                                          {Kind::Key, random_.Number(0, 19) == 0 ? kClose : kTab}})};
    }
    if (random_.Number(0, 3) > 0) plan_.push_back({Kind::Wait, random_.OneOf({1, 37, 499, 500})});
  }

  // A place on the picture, on its edge lines or one pixel outside.
  RulesEvent At(Kind kind, int left, int top, const Bitmap& picture, int value = 0) {
    const float part = random_.OneOf({0.F, 0.F, 0.F, .5F});
    return {kind, value, static_cast<float>(left + random_.Number(-1, picture.Width() + 1)) + part,
            static_cast<float>(top + random_.Number(-1, picture.Height() + 1)) + part};
  }

  // Takes the item, held where it was pressed, to the target, about its container or anywhere.
  RulesEvent Drag(const RulesItem& item, const RulesEvent& press) {
    RulesEvent move =
        random_.OneOf({At(Kind::Move, model_.Theme().targetX, model_.Theme().targetY, model_.Theme().target.mask),
                       At(Kind::Move, model_.Theme().targetX, model_.Theme().targetY, model_.Theme().target.mask),
                       At(Kind::Move, item.contX, item.contY, item.container.picture),
                       At(Kind::Move, 0, 0, model_.Theme().background)});
    move.x += press.x - static_cast<float>(item.x + item.look.mask.Width() / 2);
    move.y += press.y - static_cast<float>(item.y + item.look.mask.Height() / 2);
    return move;
  }

  Random random_;
  std::map<std::string, int>& counts_;
  const bool hasDefault_ = random_.Number(0, 1) == 0;
  const std::string names_[2] = {hasDefault_ ? "Theme1" : "Plain", "Random"};
  const std::vector<RulesTheme> themes_{RandomTheme(random_), RandomTheme(random_)};
  RulesModel model_{themes_, hasDefault_};
  Story story_{{}};
  std::deque<RulesEvent> plan_;
  std::vector<std::string> log_;
  std::string lastFrame_;
  int chosen_ = 0;
  bool choosing_ = false;
  bool closed_ = false;
};

}  // namespace sorvex
