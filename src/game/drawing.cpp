// SPDX-License-Identifier: MIT
// Masked drawing in one pass over the pixels, and frames that redraw only their dirty rectangles.
#include "game/drawing.h"

#include <algorithm>

namespace sorvex {
namespace {

// The width of row `row` of a bitmap, at most `limit`; 0 below the last row.
int RowWidth(const Bitmap& bitmap, int row, int limit) {
  return row < bitmap.Height() ? std::min(bitmap.Width(), limit) : 0;
}

const PictureBox& PictureOf(const frmMain& form, std::size_t place, const Placement& placement) {
  if (place == 0) return form.PicPlainSprite(placement.which);
  return place <= kMostItems ? form.PicSprite(placement.which) : form.picCont(placement.which);
}

const PictureBox& MaskOf(const frmMain& form, std::size_t place, const Placement& placement) {
  if (place == 0) return form.PicPlainMask(placement.which);
  return place <= kMostItems ? form.PicMask(placement.which) : form.PicContMask(placement.which);
}

// The bounds of the pixels that drawing the picture at this placement can change.
Rectangle DrawnBounds(const frmMain& form, std::size_t place, const Placement& placement) {
  const PictureBox& picture = PictureOf(form, place, placement);
  const Size outer = picture.OuterSize();
  const Size mask = MaskOf(form, place, placement).ScaleSize();
  const Size inner = picture.ScaleSize();
  return Rectangle::At(placement.x, placement.y,
                       {std::max(inner.width, std::min(mask.width, outer.width)),
                        std::max(inner.height, std::min(mask.height, outer.height))});
}

FrameContent ContentNow(const frmMain& form, const modVariables& state, ContainerShown container) {
  const Bitmap& background = form.PicBlank.Image();
  FrameContent content;
  content.themeLoads = state.ThemeLoads;
  content.background = background.Pixels().data();
  content.backgroundSize = background.Extent();
  content.placements.front() = {0, state.PlainX(0), state.PlainY(0)};
  for (Long i = 0; i <= state.LastItem; ++i)
    if (state.ItemInPlay(i))
      content.placements[1 + static_cast<std::size_t>(i)] = {static_cast<Integer>(i), state.ItemX(i), state.ItemY(i)};
  const Integer current = state.CurCont;
  if (container == ContainerShown::Yes && state.ContInPlay(current))
    content.placements.back() = {current, state.ContX(current), state.ContY(current)};
  return content;
}

void Compose(const frmMain& form, const FrameContent& content, Bitmap& dest, const Rectangle& box) {
  CopySurface(dest, form.PicBlank.Image(), box);
  for (std::size_t place = 0; place < content.placements.size(); ++place) {
    const Placement& placement = content.placements[place];
    if (placement.which >= 0 && !Intersection(DrawnBounds(form, place, placement), box).Empty())
      DrawMasked(dest, placement.x, placement.y, PictureOf(form, place, placement), MaskOf(form, place, placement),
                 box);
  }
}

// The dirty rectangles: where the two frames may differ, clipped to `all`.
DirtyRectangles Differences(const frmMain& form, const FrameContent& before, const FrameContent& after,
                            const Rectangle& all) {
  DirtyRectangles dirty;
  if (before.themeLoads != after.themeLoads || before.background != after.background ||
      before.backgroundSize != after.backgroundSize) {
    dirty.Add(all);
    return dirty;
  }
  for (std::size_t place = 0; place < after.placements.size(); ++place) {
    if (before.placements[place] == after.placements[place]) continue;
    for (const Placement& placement : {before.placements[place], after.placements[place]})
      if (placement.which >= 0) dirty.Add(Intersection(DrawnBounds(form, place, placement), all));
  }
  return dirty;
}

}  // namespace

void DrawMasked(Bitmap& dest, int x, int y, const PictureBox& picture, const PictureBox& mask, const Rectangle& clip) {
  const Bitmap& colors = picture.Image();
  const Bitmap& cutout = mask.Image();
  const Rectangle area =
      Intersection(Intersection(Rectangle::At(x, y, picture.OuterSize()), clip), dest.Bounds()).Moved(-x, -y);
  if (area.Empty()) return;
  for (int row = area.top; row < area.bottom; ++row) {
    const int colored = RowWidth(colors, row, area.right);
    const int masked = RowWidth(cutout, row, area.right);
    Pixel* out = dest.Row(y + row) + x;
    const Pixel* color = colored > 0 ? colors.Row(row) : nullptr;
    const Pixel* cut = masked > 0 ? cutout.Row(row) : nullptr;
    int column = area.left;
    for (; column < std::min(colored, masked); ++column) out[column] = (out[column] | ~cut[column]) & color[column];
    for (; column < colored; ++column) out[column] &= color[column];
    for (; column < masked; ++column) out[column] |= ~cut[column];
  }
}

void ShowFrame(Game& game, ContainerShown container) {
  frmMain& form = game.form;
  FrameMemory& memory = game.frame;
  const FrameContent content = ContentNow(form, game.state, container);
  const Rectangle all = Rectangle::At(0, 0, form.PicBackbuff.ScaleSize());
  DirtyRectangles dirty;
  if (memory.backbuffRevision == form.PicBackbuff.Revision())
    dirty = Differences(form, memory.content, content, all);
  else
    dirty.Add(all);
  memory.content = content;
  memory.settled.reset();  // no tests have followed this frame yet; in a return animation none do
  if (!dirty.All().empty()) {
    Bitmap& backBuffer = form.PicBackbuff.Drawing();
    for (const Rectangle& box : dirty.All()) Compose(form, content, backBuffer, box);
    memory.backbuffRevision = form.PicBackbuff.Revision();
  }

  if (memory.canvasRevision != form.PicCanvas.Revision()) dirty.Add(all);
  if (dirty.All().empty()) return;
  Bitmap& canvas = form.PicCanvas.Drawing();
  for (const Rectangle& box : dirty.All()) CopySurface(canvas, form.PicBackbuff.Image(), box);
  memory.canvasRevision = form.PicCanvas.Revision();
  game.desktop.Refresh(form.PicCanvas, dirty.All());
}

void ShowWaitingFrame(Game& game) {
  PictureBox& field = game.form.PicCanvas;
  DrawFrame(game.form, game.state, field.Drawing());
  game.desktop.Refresh(field, std::array{field.Image().Bounds()});
}

void DrawFrame(const frmMain& form, const modVariables& state, Bitmap& dest) {
  Compose(form, ContentNow(form, state, ContainerShown::Yes), dest, dest.Bounds());
}

void DirtyRectangles::Add(Rectangle box) {
  if (box.Empty()) return;
  for (std::size_t i = 0; i < count_;) {
    if (Intersection(rectangles_[i], box).Empty()) {
      ++i;
      continue;
    }
    box = {std::min(box.left, rectangles_[i].left), std::min(box.top, rectangles_[i].top),
           std::max(box.right, rectangles_[i].right), std::max(box.bottom, rectangles_[i].bottom)};
    rectangles_[i] = rectangles_[--count_];
    i = 0;  // the merged rectangle may overlap earlier ones
  }
  rectangles_[count_++] = box;
}

}  // namespace sorvex
