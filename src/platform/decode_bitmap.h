// SPDX-License-Identifier: MIT
// Bitmap files as the system's own reader reads them. The front end of each system brings this function; it needs no
// desktop.
#pragma once

#include <optional>
#include <string_view>

#include "base/bitmap.h"

namespace sorvex {

/// The pixels of a bitmap file, given its bytes; transparency is dropped. What run-length encoded rows leave out is
/// black. nullopt when the system's reader cannot read it. Readers trust what a bitmap declares of itself: check that
/// first (themes/bitmap_check.h).
std::optional<Bitmap> DecodeBitmap(std::string_view bytes);

}  // namespace sorvex
