// SPDX-License-Identifier: MIT
// Limits on what a theme may contain, since theme folders are untrusted. docs/themes.md lists them for theme authors.
#pragma once

#include <cstdint>

namespace sorvex {

/// Bytes of a text file, including the table of best times.
inline constexpr std::uintmax_t kLongestText = 64 << 10;
/// Files and folders of a folder in which names are found whatever their case, which takes looking at each.
inline constexpr int kMostEntries = 1000;
/// Bytes of a wave file.
inline constexpr std::uintmax_t kLargestSound = 32 << 20;
/// Pixels of all pictures of a theme together.
inline constexpr std::int64_t kMostPixels = 16'000'000;
/// Pixels of a picture's width or height.
inline constexpr std::int64_t kLongestSide = 32767;
/// Bytes of a bitmap file before its pixel data.
inline constexpr std::uint32_t kMaxPixelOffset = 1 << 20;

}  // namespace sorvex
