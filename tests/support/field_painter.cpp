// SPDX-License-Identifier: MIT
// Painting a field with plain raster operations.
#include "support/field_painter.h"

#include <utility>

#include "platform/headless/bmp_reader.h"
#include "support/raster.h"
#include "support/temp_folder.h"

namespace sorvex {

FieldPainter::FieldPainter(std::filesystem::path themeFolder, int targetX, int targetY)
    : folder_(std::move(themeFolder)), targetX_(targetX), targetY_(targetY) {}

Bitmap FieldPainter::Read(const std::string& name) const { return ReadBmp(ReadWholeFile(folder_ / name)).value(); }

void FieldPainter::Draw(Bitmap& field, int x, int y, const std::string& picture, const std::string& mask) const {
  const Bitmap colours = Read(picture);
  BitBlt(field, x, y, colours.Extent(), Read(mask), 0, 0, RasterOperation::MergePaint);
  BitBlt(field, x, y, colours.Extent(), colours, 0, 0, RasterOperation::SrcAnd);
}

Bitmap FieldPainter::Paint(const std::vector<Placed>& items, std::optional<Placed> container) const {
  Bitmap field = Read("bg.bmp");
  Draw(field, targetX_, targetY_, "pS.bmp", "pM.bmp");
  for (const Placed& item : items) {
    const std::string n = std::to_string(item.number) + ".bmp";
    Draw(field, item.x, item.y, "ss" + n, "sm" + n);
  }
  if (container) {
    const std::string n = std::to_string(container->number) + ".bmp";
    Draw(field, container->x, container->y, "cs" + n, "cm" + n);
  }
  return field;
}

}  // namespace sorvex
