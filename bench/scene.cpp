// SPDX-License-Identifier: MIT
// Generates the games' pictures and writes them as themes.
#include "scene.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <random>
#include <string>
#include <string_view>
#include <utility>

#include "game/mask.h"
#include "platform/desktop_properties.h"
#include "support/temp_folder.h"
#include "support/theme_folder.h"

namespace sorvex::bench {
namespace {

constexpr int kGap = 5;  // between a container's wall and the item at rest

// A wave file (8-bit, 8,000 Hz) without samples.
constexpr std::string_view kSilence(
    "RIFF\x24\0\0\0WAVEfmt \x10\0\0\0\1\0\1\0\x40\x1F\0\0\x40\x1F\0\0\1\0\x8\0data\0\0\0\0", 44);

using Shape = std::function<bool(int x, int y)>;

Bitmap Mask(Size size, const Shape& isOpaque) {
  Bitmap mask(size, kWhite);
  for (int y = 0; y < size.height; ++y)
    for (int x = 0; x < size.width; ++x)
      if (isOpaque(x, y)) mask.Row(y)[x] = kBlack;
  return mask;
}

Bitmap Colored(const Bitmap& mask, std::mt19937& random) {
  Bitmap picture(mask.Extent(), kWhite);
  for (int y = 0; y < mask.Height(); ++y)
    for (int x = 0; x < mask.Width(); ++x)
      if (mask.At(x, y) == kBlack) picture.Row(y)[x] = 0xFF000000 | static_cast<Pixel>(random());
  return picture;
}

Shape RaggedOval(Size size, std::mt19937& random) {
  return [size, &random](int x, int y) {
    const double dx = (x + 0.5) / size.width * 2 - 1;
    const double dy = (y + 0.5) / size.height * 2 - 1;
    return dx * dx + dy * dy < 0.8 + 0.2 * static_cast<double>(random() % 1000) / 1000;
  };
}

Shape Cup(Size size) {
  const int wall = kGap - 2;
  return [=](int x, int y) { return x < wall || x >= size.width - wall || y >= size.height - wall; };
}

Shape Ring(Size size) {
  return [=](int x, int y) {
    const double dx = (x + 0.5) / size.width * 2 - 1;
    const double dy = (y + 0.5) / size.height * 2 - 1;
    const double distance = dx * dx + dy * dy;
    return distance < 1 && distance > 0.5;
  };
}

// The random seed; the environment variable SORVEX_BENCH_SEED overrides it.
std::uint32_t Seed() {
  const char* chosen = std::getenv("SORVEX_BENCH_SEED");
  return chosen == nullptr ? 20261124 : static_cast<std::uint32_t>(std::strtoul(chosen, nullptr, 10));
}

void SetPair(PictureBox& picture, PictureBox& mask, Bitmap shape, std::mt19937& random) {
  picture.SetPicture(MakePicture(Colored(shape, random)));
  mask.SetPicture(MakeMask(std::move(shape)));
}

}  // namespace

Scene::Scene(Desktop& desktop, const SceneDesign& design) : game{desktop, form, state} {
  std::mt19937 random(Seed());
  PaintDesign(desktop, form);
  form.picBg1.SetPicture(MakePicture(Colored(Mask(design.field, [](int, int) { return true; }), random)));
  form.picBG2.SetPicture(MakeTwin(form.picBg1.PictureObject()));
  form.PicBlank.SetPicture(form.picBg1.PictureObject());
  form.PicCanvas.Resize(form.PicBlank.Width, form.PicBlank.Height);
  form.PicBackbuff.Resize(form.PicCanvas.Width, form.PicCanvas.Height);
  SetPair(form.PicPlainSprite(0), form.PicPlainMask(0), Mask(design.target, Ring(design.target)), random);
  state.PlainX(0) = static_cast<Integer>(design.field.width - design.target.width - 8);
  state.PlainY(0) = static_cast<Integer>(design.field.height - design.target.height - 8);

  const int columns = std::max(1, (design.field.width - design.target.width) / design.container.width);
  state.LastItem = design.items - 1;
  for (int i = 0; i < design.items; ++i) {
    if (i > 0)
      for (auto* array : {&form.PicSprite, &form.PicMask, &form.picCont, &form.PicContMask}) array->Load(i);
    SetPair(form.PicSprite(i), form.PicMask(i), Mask(design.item, RaggedOval(design.item, random)), random);
    SetPair(form.picCont(i), form.PicContMask(i), Mask(design.container, Cup(design.container)), random);
    state.ContX(i) = static_cast<Integer>(i % columns * design.container.width);
    state.ContY(i) = static_cast<Integer>(i / columns * design.container.height % (design.field.height / 2));
    state.ItemX(i) = static_cast<Integer>(state.ContX(i) + kGap);
    state.ItemY(i) = static_cast<Integer>(state.ContY(i) + design.container.height - kGap - design.item.height);
    state.ItemInPlay(i) = true;
    state.ContInPlay(i) = true;
  }
}

void WriteTheme(const Scene& scene, const std::filesystem::path& folder) {
  const frmMain& form = scene.form;
  const modVariables& state = scene.state;
  const auto write = [&folder](const std::string& name, const PictureBox& picture) {
    WriteFile(folder / (name + ".bmp"), BmpBytes(picture.Image()));
  };
  std::string places;
  for (Integer i = 0; i <= state.LastItem; ++i) {
    for (const Integer place : {state.ItemX(i), state.ItemY(i), state.ContX(i), state.ContY(i)})
      places += std::to_string(place) + "\r\n";
    const std::string number = std::to_string(i);
    write("ss" + number, form.PicSprite(i));
    write("sm" + number, form.PicMask(i));
    write("cs" + number, form.picCont(i));
    write("cm" + number, form.PicContMask(i));
  }
  write("bg", form.picBg1);
  write("pS", form.PicPlainSprite(0));
  write("pM", form.PicPlainMask(0));
  WriteFile(folder / "Theme.ini", places);
  WriteFile(folder / "Theme2.ini", std::to_string(state.PlainX(0)) + "," + std::to_string(state.PlainY(0)) + "\r\n");
  WriteFile(folder / "ThemeDetails.ini", "\"Generated\"\r\n\"01/02/03\"\r\n");
  WriteFile(folder / "HighScores.ini", HighScoreFile({}));
  for (const char* sound : {"HitTube.wav", "PutInCont.wav", "Pickup.wav", "LetGo.wav"})
    WriteFile(folder / sound, kSilence);
}

}  // namespace sorvex::bench
