// SPDX-License-Identifier: MIT
// Masked drawing in one pass over the pixels, and the order in which a frame is composed.
#include "game/drawing.h"

#include <algorithm>

namespace sorvex {
namespace {

// How much of row `row` of a bitmap, cut to `limit` columns, there is: 0 below its last row.
int RowWidth(const Bitmap& bitmap, int row, int limit) {
  return row < bitmap.Height() ? std::min(bitmap.Width(), limit) : 0;
}

}  // namespace

void DrawMasked(PictureBox& dest, int x, int y, const PictureBox& picture, const PictureBox& mask) {
  Bitmap& target = dest.Drawing();
  const Bitmap& colours = picture.Image();
  const Bitmap& cutout = mask.Image();
  const Size outer = picture.OuterSize();

  const int left = std::max(0, -x);
  const int right = std::min(outer.width, target.Width() - x);
  const int top = std::max(0, -y);
  const int bottom = std::min(outer.height, target.Height() - y);
  if (left >= right) return;
  for (int row = top; row < bottom; ++row) {
    const int coloured = RowWidth(colours, row, right);
    const int masked = RowWidth(cutout, row, right);
    Pixel* out = target.Row(y + row) + x;
    const Pixel* colour = coloured > 0 ? colours.Row(row) : nullptr;
    const Pixel* cut = masked > 0 ? cutout.Row(row) : nullptr;
    int column = left;
    for (; column < std::min(coloured, masked); ++column) out[column] = (out[column] | ~cut[column]) & colour[column];
    for (; column < coloured; ++column) out[column] &= colour[column];
    for (; column < masked; ++column) out[column] |= ~cut[column];
  }
}

void CopySurface(PictureBox& dest, const PictureBox& source) {
  const Bitmap& from = source.Image();
  Bitmap& to = dest.Drawing();
  const int width = std::min(from.Width(), to.Width());
  const int height = std::min(from.Height(), to.Height());
  for (int row = 0; row < height; ++row) std::copy_n(from.Row(row), width, to.Row(row));
}

void ComposeFrame(Game& game, PictureBox& dest) {
  frmMain& form = game.form;
  const modVariables& state = game.state;
  CopySurface(dest, form.PicBlank);
  for (int i = 0; i < form.PicPlainSprite.Count(); ++i)
    DrawMasked(dest, state.PlainX(i), state.PlainY(i), form.PicPlainSprite(i), form.PicPlainMask(i));
  for (Long i = 0; i <= state.LastItem; ++i)
    if (state.ItemInPlay(i)) DrawMasked(dest, state.ItemX(i), state.ItemY(i), form.PicSprite(i), form.PicMask(i));
}

void DrawContainer(Game& game, PictureBox& dest) {
  const frmMain& form = game.form;
  const modVariables& state = game.state;
  const Integer container = state.CurCont;
  if (state.ContInPlay(container))
    DrawMasked(dest, state.ContX(container), state.ContY(container), form.picCont(container),
               form.PicContMask(container));
}

void PresentFrame(Game& game) {
  CopySurface(game.form.PicCanvas, game.form.PicBackbuff);
  game.desktop.Refresh(game.form.PicCanvas);
}

}  // namespace sorvex
