// SPDX-License-Identifier: MIT
// The field drawn by the game itself, and boxes of one color over it.
#include "kit/preview.h"

#include <algorithm>
#include <array>

#include "forms/main_window.h"
#include "game/drawing.h"
#include "game/mask.h"
#include "themes/load_theme.h"

namespace sorvex {
namespace {

// Okabe and Ito's colors, which most eyes tell apart.
constexpr std::array<Pixel, 7> kColors{0xFFD55E00, 0xFF0072B2, 0xFF009E73, 0xFFCC79A7,
                                       0xFFE69F00, 0xFF56B4E9, 0xFFF0E442};

void Fill(Bitmap& picture, const Rectangle& box, Pixel color) {
  const Rectangle inside = Intersection(box, picture.Bounds());
  for (int y = inside.top; y < inside.bottom; ++y)
    std::fill(picture.Row(y) + inside.left, picture.Row(y) + std::max(inside.left, inside.right), color);
}

// A straight stroke of a pixel's width, `wider` by so much on each side.
void Stroke(Bitmap& picture, Place from, Place to, Pixel color, int wider) {
  const Rectangle box{std::min(from.x, to.x), std::min(from.y, to.y), std::max(from.x, to.x) + 1,
                      std::max(from.y, to.y) + 1};
  Fill(picture, Grown(box, wider), color);
}

void DrawWay(Bitmap& picture, const Journey& journey, Place center, Pixel color) {
  for (const bool edge : {true, false}) {
    Place before = journey.corners.front();
    for (const Place corner : journey.corners) {
      Stroke(picture, {before.x + center.x, before.y + center.y}, {corner.x + center.x, corner.y + center.y},
             edge ? kWhite : color, edge ? 1 : 0);
      before = corner;
    }
  }
}

void DrawBox(Bitmap& picture, const Rectangle& box, Pixel color) {
  const Place first{box.left, box.top};
  const Place last{box.right - 1, box.bottom - 1};
  for (const Place corner : {Place{first.x, last.y}, Place{last.x, first.y}})
    for (const Place end : {first, last}) Stroke(picture, corner, end, color, 0);
}

void DrawCross(Bitmap& picture, Place middle, Pixel color) {
  for (int i = -6; i <= 6; ++i)
    for (const int down : {i, -i}) Fill(picture, Rectangle::At(middle.x + i - 1, middle.y + down, {3, 1}), color);
}

void DrawOutline(Bitmap& picture, const BitPlane& outline, Place corner, Pixel color) {
  for (int y = 0; y < outline.Extent().height; ++y)
    for (int x = 0; x < outline.Extent().width; ++x)
      if ((outline.Row(y)[x / 64] >> (x % 64) & 1) != 0)
        Fill(picture, Rectangle::At(corner.x + x, corner.y + y, {1, 1}), color);
}

void DrawProof(Bitmap& picture, const Theme& theme, int number, const ItemProof& proof) {
  const ItemPictures& pictures = theme.pictures[static_cast<std::size_t>(number)];
  const Pixel color = ColorOf(number);
  const Size size = pictures.itemMask->Pixels().Extent();
  const Place center{size.width / 2, size.height / 2};
  const Journey& journey = proof.fromStart;
  DrawOutline(picture, OutlineOf(AsMask(pictures.containerMask)->ContainerSolid()),
              {theme.items.ContX(number), theme.items.ContY(number)}, color);
  if (journey.verdict == Verdict::Way) DrawWay(picture, journey, center, color);
  if (journey.tightest) DrawBox(picture, Rectangle::At(journey.tightest->x, journey.tightest->y, size), color);
  if (journey.verdict == Verdict::NoWay)
    DrawCross(picture, {journey.closesAt.x + center.x, journey.closesAt.y + center.y}, color);
}

}  // namespace

Pixel ColorOf(int number) { return kColors[static_cast<std::size_t>(number) % kColors.size()]; }

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
