// SPDX-License-Identifier: MIT
// How much of a theme the game takes: folders may come from anywhere. Told to makers of themes in docs/themes.md.
#pragma once

#include <cstdint>

namespace sorvex {

/// Bytes of a text file, the table of best times too.
inline constexpr std::uintmax_t kLongestText = 64 << 10;
/// Bytes of a sound.
inline constexpr std::uintmax_t kLargestSound = 32 << 20;
/// Pixels of all pictures together.
inline constexpr std::int64_t kMostPixels = 16'000'000;
/// Pixels of a picture's side.
inline constexpr std::int64_t kLongestSide = 32767;
/// Bytes of a bitmap file before its pixels.
inline constexpr std::uint32_t kLatestPixels = 1 << 20;

}  // namespace sorvex
