// SPDX-License-Identifier: MIT
// What the play field must show, painted from a theme's files by raster operations alone.
#pragma once

#include <optional>
#include <vector>

#include "platform/decode_bitmap.h"
#include "support/raster.h"
#include "support/temp_folder.h"
#include "support/theme_folder.h"

namespace sorvex {

struct Placed {
  int number;
  int x;
  int y;
};

/// Background, target (where `theme` has it), `items` in their order, the container on top.
inline Bitmap PaintField(const std::filesystem::path& themeFolder, const TestTheme& theme,
                         const std::vector<Placed>& items, std::optional<Placed> container) {
  const auto read = [&](const std::string& name) { return DecodeBitmap(ReadWholeFile(themeFolder / name)).value(); };
  Bitmap field = read("bg.bmp");
  const auto draw = [&](int x, int y, char kind, const std::string& which) {
    const Bitmap colors = read(kind + ("s" + which) + ".bmp");
    DrawInFull(field, x, y, colors.Extent(), colors, read(kind + ("m" + which) + ".bmp"));
  };
  const Bitmap target = read("pS.bmp");
  DrawInFull(field, theme.targetX, theme.targetY, target.Extent(), target, read("pM.bmp"));
  for (const auto& [number, x, y] : items) draw(x, y, 's', std::to_string(number));
  if (container) draw(container->x, container->y, 'c', std::to_string(container->number));
  return field;
}

}  // namespace sorvex
