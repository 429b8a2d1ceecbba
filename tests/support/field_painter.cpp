// SPDX-License-Identifier: MIT
// Painting a field with plain raster operations.
#include "support/field_painter.h"

#include <string>

#include "platform/decode_bitmap.h"
#include "support/raster.h"
#include "support/temp_folder.h"

namespace sorvex {

Bitmap FieldPainter::Paint(const std::vector<Placed>& items, std::optional<Placed> container) const {
  const auto read = [this](const std::string& name) { return DecodeBitmap(ReadWholeFile(folder_ / name)).value(); };
  Bitmap field = read("bg.bmp");
  const auto draw = [&](int x, int y, const std::string& picture, const std::string& mask) {
    const Bitmap colors = read(picture);
    DrawInFull(field, x, y, colors.Extent(), colors, read(mask));
  };
  draw(targetX_, targetY_, "pS.bmp", "pM.bmp");
  for (const auto& [number, x, y] : items)
    draw(x, y, "ss" + std::to_string(number) + ".bmp", "sm" + std::to_string(number) + ".bmp");
  if (container)
    draw(container->x, container->y, "cs" + std::to_string(container->number) + ".bmp",
         "cm" + std::to_string(container->number) + ".bmp");
  return field;
}

}  // namespace sorvex
