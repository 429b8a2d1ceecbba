// SPDX-License-Identifier: MIT
// Frames that redo only what differs, held against frames composed in full with the raster operations.
#include <gtest/gtest.h>

#include "game/drawing.h"
#include "game/render_loop.h"
#include "game/return_item.h"
#include "platform/desktop_properties.h"
#include "platform/headless/headless_desktop.h"
#include "support/random_surfaces.h"
#include "support/raster.h"

namespace sorvex {
namespace {

// Plays random games and keeps, beside the game's surfaces, the same two surfaces drawn in full every frame and a
// screen that only receives the boxes named as changed.
class FullFrames : public HeadlessDesktop {
 public:
  explicit FullFrames(unsigned seed) : HeadlessDesktop(""), random(seed) { PaintDesign(*this, form); }

  void Refresh(PictureBox& surface, std::span<const Rectangle> changed) override {
    for (const Rectangle& box : changed)
      for (int y = box.top; y < std::min(box.bottom, surface.Image().Height()); ++y)
        for (int x = box.left; x < std::min(box.right, surface.Image().Width()); ++x)
          screen.Row(y)[x] = surface.Image().At(x, y);
    if (!inLoop) DrawFrameInFull(ContainerShown::No);  // a frame of a slide
  }

  void DrawFrameInFull(ContainerShown container) {
    BitBlt(backBuffer, 0, 0, form.PicBlank.ScaleSize(), form.PicBlank.Image(), 0, 0, RasterOperation::SrcCopy);
    const auto draw = [this](int x, int y, const PictureBox& picture, const PictureBox& mask) {
      DrawInFull(backBuffer, x, y, picture.OuterSize(), picture.Image(), mask.Image());
    };
    draw(state.PlainX(0), state.PlainY(0), form.PicPlainSprite(0), form.PicPlainMask(0));
    for (Long i = 0; i <= state.LastItem; ++i)
      if (state.ItemInPlay(i)) draw(state.ItemX(i), state.ItemY(i), form.PicSprite(i), form.PicMask(i));
    const Integer current = state.CurCont;
    if (container == ContainerShown::Yes && state.ContInPlay(current))
      draw(state.ContX(current), state.ContY(current), form.picCont(current), form.PicContMask(current));
    BitBlt(canvas, 0, 0, canvas.Extent(), backBuffer, 0, 0, RasterOperation::SrcCopy);
    ASSERT_EQ(form.PicBackbuff.Image(), backBuffer);
    ASSERT_EQ(form.PicCanvas.Image(), canvas);
    ASSERT_EQ(screen, canvas) << "a changed place was not shown";
  }

  void Frame() {
    inLoop = true;
    ShowFrame(game, ContainerShown::Yes);
    inLoop = false;
    DrawFrameInFull(ContainerShown::Yes);
  }

  void LoadRandomTheme() {
    ++state.ThemeLoads;
    static_cast<ItemTable&>(state) = ItemTable{};
    state.LastItem = random.Number(-1, 5);
    state.CurItem = state.CurCont = 0;
    const auto arrays = {&form.PicSprite, &form.PicMask, &form.picCont, &form.PicContMask};
    while (form.PicSprite.Count() > 1)
      for (auto* array : arrays) array->Unload(array->Count() - 1);
    for (int i = 0; i <= state.LastItem; ++i) {
      if (i > 0)
        for (auto* array : arrays) array->Load(i);
      for (auto* array : arrays) (*array)(i).SetPicture(RandomPicture(20));
      state.ItemInPlay(i) = state.ContInPlay(i) = true;
      state.ContX(i) = Place();
      state.ContY(i) = Place();
      MoveItem(static_cast<Integer>(i));
    }
    form.PicPlainSprite(0).SetPicture(RandomPicture(25));
    form.PicPlainMask(0).SetPicture(RandomPicture(25));
    state.PlainX(0) = Place();
    form.picBg1.SetPicture(MakePicture(random.Bitmap({random.Number(20, 70), random.Number(20, 70)}, Colors::Any)));
    form.picBG2.SetPicture(MakeTwin(form.picBg1.PictureObject()));
    form.PicBlank.SetPicture(form.picBg1.PictureObject());
    if (random.Number(0, 2) > 0) ResizeField();
  }

  void ResizeField() {
    const auto width = static_cast<float>(random.Number(20, 80));
    const auto height = static_cast<float>(random.Number(20, 80));
    form.PicCanvas.Resize(width, height);
    if (random.Number(0, 1) > 0) form.PicBackbuff.Resize(width, height);
    if (random.Number(0, 3) == 0) form.PicBlank.Resize(width, height);
    Follow();
  }

  // The surfaces were changed by others: the plain ones start from what they hold.
  void Follow() {
    backBuffer = form.PicBackbuff.Image();
    canvas = screen = form.PicCanvas.Image();
  }

  void Act() {
    if (state.LastItem < 0) return;
    const auto any = static_cast<Integer>(random.Number(0, state.LastItem));
    switch (random.Number(0, 9)) {
      case 0: state.ItemInPlay(any) = random.Number(0, 1) > 0; break;
      case 1: state.ContInPlay(any) = random.Number(0, 1) > 0; break;
      case 2: state.CurCont = any; break;
      case 3: state.CurItem = any; break;
      case 4: tmrChangePicBack_Timer(form); break;
      case 5: ReturnItem(game); break;
      case 6:
        form.PicCanvas.Drawing().Row(0)[0] ^= 1;
        Follow();
        break;
      default: MoveItem(any);
    }
  }

  Picture RandomPicture(int longest) {
    return MakeMask(random.Bitmap({random.Number(1, longest), random.Number(1, longest)}, Colors::MaskLike));
  }
  Integer Place() { return static_cast<Integer>(random.Number(-15, 75)); }
  void MoveItem(Integer i) {
    state.ItemX(i) = Place();
    state.ItemY(i) = Place();
  }

  Random random;
  frmMain form;
  modVariables state;
  Game game{*this, form, state};
  Bitmap backBuffer, canvas, screen;
  bool inLoop = false;
};

TEST(Frames, WhatIsRedoneInPartEqualsWhatIsRedoneInFull) {
  const unsigned seed = Random().Seed;
  SCOPED_TRACE(seed);
  for (unsigned play = 0; play < 2000; ++play) {
    FullFrames desktop(seed + play);
    desktop.LoadRandomTheme();
    desktop.ResizeField();
    for (int frame = 0; frame < 15; ++frame) {
      if (desktop.random.Number(0, 14) == 0) desktop.LoadRandomTheme();
      if (desktop.random.Number(0, 14) == 0) desktop.ResizeField();
      for (int actions = desktop.random.Number(0, 2); actions > 0; --actions) desktop.Act();
      desktop.Frame();
      if (HasFatalFailure()) FAIL() << "play " << play << ", frame " << frame;
    }
  }
}

}  // namespace
}  // namespace sorvex
