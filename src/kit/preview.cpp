// SPDX-License-Identifier: MIT
// The field drawn by the game itself, and boxes of one colour over it.
#include "kit/preview.h"

#include <algorithm>
#include <array>

#include "forms/main_window.h"
#include "game/drawing.h"
#include "game/mask.h"
#include "themes/load_theme.h"

namespace sorvex {
namespace {

// Okabe and Ito's colours, which most eyes tell apart.
constexpr std::array<Pixel, 7> kColours{0xFFD55E00, 0xFF0072B2, 0xFF009E73, 0xFFCC79A7,
                                        0xFFE69F00, 0xFF56B4E9, 0xFFF0E442};

void Fill(Bitmap& picture, const Rectangle& box, Pixel colour) {
  const Rectangle inside = Intersection(box, picture.Bounds());
  for (int y = inside.top; y < inside.bottom; ++y)
    std::fill(picture.Row(y) + inside.left, picture.Row(y) + std::max(inside.left, inside.right), colour);
}

// A straight stroke of a pixel's width, `wider` by so much on each side.
void Stroke(Bitmap& picture, Place from, Place to, Pixel colour, int wider) {
  const Rectangle box{std::min(from.x, to.x), std::min(from.y, to.y), std::max(from.x, to.x) + 1,
                      std::max(from.y, to.y) + 1};
  Fill(picture, Grown(box, wider), colour);
}

void DrawWay(Bitmap& picture, const Journey& journey, Place centre, Pixel colour) {
  for (const bool edge : {true, false}) {
    Place before = journey.corners.front();
    for (const Place corner : journey.corners) {
      Stroke(picture, {before.x + centre.x, before.y + centre.y}, {corner.x + centre.x, corner.y + centre.y},
             edge ? kWhite : colour, edge ? 1 : 0);
      before = corner;
    }
  }
}

void DrawBox(Bitmap& picture, const Rectangle& box, Pixel colour) {
  const Place first{box.left, box.top};
  const Place last{box.right - 1, box.bottom - 1};
  for (const Place corner : {Place{first.x, last.y}, Place{last.x, first.y}})
    for (const Place end : {first, last}) Stroke(picture, corner, end, colour, 0);
}

void DrawCross(Bitmap& picture, Place middle, Pixel colour) {
  for (int i = -6; i <= 6; ++i)
    for (const int down : {i, -i}) Fill(picture, Rectangle::At(middle.x + i - 1, middle.y + down, {3, 1}), colour);
}

void DrawOutline(Bitmap& picture, const BitPlane& outline, Place corner, Pixel colour) {
  for (int y = 0; y < outline.Extent().height; ++y)
    for (int x = 0; x < outline.Extent().width; ++x)
      if ((outline.Row(y)[x / 64] >> (x % 64) & 1) != 0)
        Fill(picture, Rectangle::At(corner.x + x, corner.y + y, {1, 1}), colour);
}

void DrawProof(Bitmap& picture, const Theme& theme, int number, const ItemProof& proof) {
  const ItemPictures& pictures = theme.pictures[static_cast<std::size_t>(number)];
  const Pixel colour = ColourOf(number);
  const Size size = pictures.itemMask->Pixels().Extent();
  const Place centre{size.width / 2, size.height / 2};
  const Journey& journey = proof.fromStart;
  DrawOutline(picture, OutlineOf(AsMask(pictures.containerMask)->ContainerSolid()),
              {theme.items.ContX(number), theme.items.ContY(number)}, colour);
  if (journey.verdict == Verdict::Way) DrawWay(picture, journey, centre, colour);
  if (journey.tightest) DrawBox(picture, Rectangle::At(journey.tightest->x, journey.tightest->y, size), colour);
  if (journey.verdict == Verdict::NoWay)
    DrawCross(picture, {journey.closesAt.x + centre.x, journey.closesAt.y + centre.y}, colour);
}

}  // namespace

Pixel ColourOf(int number) { return kColours[static_cast<std::size_t>(number) % kColours.size()]; }

Bitmap DrawPreview(const Theme& theme) {
  frmMain form;
  modVariables state;
  PutOnForm(form, state, theme);
  Bitmap picture(form.PicCanvas.ScaleSize());
  DrawFrame(form, state, picture);
  return picture;
}

Bitmap DrawPreview(const Theme& theme, std::span<const ItemProof> proofs) {
  Bitmap picture = DrawPreview(theme);
  for (std::size_t i = 0; i < proofs.size(); ++i) DrawProof(picture, theme, static_cast<int>(i), proofs[i]);
  return picture;
}

}  // namespace sorvex
