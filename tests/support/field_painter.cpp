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
  DrawInFull(field, x, y, colours.Extent(), colours, Read(mask));
}

Bitmap FieldPainter::Paint(const std::vector<Placed>& items, std::optional<Placed> container) const {
  Bitmap field = Read("bg.bmp");
  Draw(field, targetX_, targetY_, "pS.bmp", "pM.bmp");
  const auto draw = [&](const Placed& placed, const std::string& kind) {
    const std::string n = std::to_string(placed.number) + ".bmp";
    Draw(field, placed.x, placed.y, kind + "s" + n, kind + "m" + n);
  };
  for (const Placed& item : items) draw(item, "s");
  if (container) draw(*container, "c");
  return field;
}

}  // namespace sorvex
