// SPDX-License-Identifier: MIT
// What setting a property does: sizes, frames, persistent images, control arrays.
#include "platform/controls.h"

#include <gtest/gtest.h>

#include "platform/headless/headless_desktop.h"
#include "support/random_surfaces.h"
#include "support/temp_folder.h"

namespace sorvex {
namespace {

TEST(Surface, TakesItsPicturesSizeWhenItSizesItself) {
  for (const Frame frame : {Frame::None, Frame::Flat, Frame::Sunken}) {
    const PictureBox surface = AutoSurface(Bitmap({10, 7}, 0xFF123456), frame);
    EXPECT_EQ(surface.ScaleSize(), (Size{10, 7}));
    EXPECT_EQ(surface.OuterSize().width, 10 + 2 * FrameWidth(frame));
    EXPECT_EQ(surface.Image(), Bitmap({10, 7}, 0xFF123456));
  }
}

TEST(Surface, OfAFixedSizeCutsItsPictureOrShowsBackground) {
  PictureBox surface = FixedSurface(Bitmap({5, 5}));
  surface.Background = 0xFF0000FF;
  surface.SetPicture(MakePicture(Bitmap({3, 9}, kWhite)));
  EXPECT_EQ(surface.ScaleSize(), (Size{5, 5}));
  EXPECT_EQ(surface.Image().At(2, 4), kWhite);
  EXPECT_EQ(surface.Image().At(3, 0), 0xFF0000FF);
}

TEST(Surface, KeepsItsImageWhenResized) {
  PictureBox surface = FixedSurface(Bitmap({4, 4}, kWhite));
  surface.Background = 0xFF00FF00;
  surface.Resize(10, 6);
  EXPECT_EQ(surface.Image().At(3, 1), kWhite);
  EXPECT_EQ(surface.Image().At(4, 0), 0xFF00FF00);
  EXPECT_EQ(surface.Image().Extent(), (Size{6, 2}));
  surface.Resize(3, 3);
  EXPECT_EQ(surface.Image().Extent(), (Size{0, 0}));
}

TEST(Surface, DrawingNeverReachesTheSharedPicture) {
  const Picture shared = MakePicture(Bitmap({4, 4}, kWhite));
  PictureBox surface;
  surface.AutoSize = true;
  surface.SetPicture(shared);
  surface.Drawing().Row(0)[0] = kBlack;
  EXPECT_EQ(shared->Pixels().At(0, 0), kWhite);
  EXPECT_EQ(surface.Image().At(0, 0), kBlack);
  surface.SetPicture(shared);
  EXPECT_EQ(surface.Image().At(0, 0), kWhite);
}

struct TestForm : Form {
  ControlArray<Label> lblRow{*this};
};

TEST(ControlArrayRules, ElementsComeAndGoAtTheEnd) {
  TestForm form;
  form.lblRow(0).Caption = "design";
  Label& first = form.lblRow.Load(1);
  EXPECT_EQ(first.Caption, "design");
  EXPECT_EQ(first.Index, 1);
  EXPECT_FALSE(first.Visible) << "a new element is hidden";
  EXPECT_EQ(form.Controls, std::vector<Control*>{&first});
  EXPECT_THROW(form.lblRow.Load(1), RuntimeError);
  EXPECT_THROW(form.lblRow.Load(3), RuntimeError);
  EXPECT_THROW(form.lblRow.Unload(0), RuntimeError);
  EXPECT_THROW(form.lblRow(2), RuntimeError);
  form.lblRow.Unload(1);
  EXPECT_TRUE(form.Controls.empty());
}

TEST(Window, ItsClientAreaFollowsFromTheClassicFrame) {
  const struct {
    FormBorder border;
    Size frame;
  } cases[] = {
      {FormBorder::Sizable, {8, 27}}, {FormBorder::FixedDialog, {6, 25}}, {FormBorder::FixedToolWindow, {6, 22}}};
  for (const auto& c : cases) {
    Form form;
    form.Border = c.border;
    SetClientSize(form, {290, 157}, {15, 12});
    EXPECT_EQ(form.Width, static_cast<float>((290 + c.frame.width) * 15));
    EXPECT_EQ(form.Height, static_cast<float>((157 + c.frame.height) * 12));
    EXPECT_EQ(ClientSize(form, {15, 12}), (Size{290, 157}));
  }
}

TEST(LabelRules, SizesItselfToItsCaption) {
  const TempFolder folder;
  HeadlessDesktop desktop(folder.Path(), folder.Path() / "registry.reg");
  Label label;
  label.SetCaption(desktop, "12345");
  EXPECT_EQ(label.Width, 40);
  EXPECT_EQ(label.Height, 17);
  label.WordWrap = true;
  label.SetCaption(desktop, "123456789");
  EXPECT_EQ(label.Width, 40) << "wrapped text keeps the width";
  EXPECT_EQ(label.Height, 34);
}

}  // namespace
}  // namespace sorvex
