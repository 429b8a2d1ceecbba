// SPDX-License-Identifier: MIT
// Themes side by side on a page of plain HTML that works from a folder.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "kit/proof.h"
#include "themes/theme_files.h"

namespace sorvex {

struct GalleryTheme {
  std::string name;
  const Theme* theme = nullptr;
  std::vector<ItemProof> proofs;  ///< of its items
};

/// Writes the page, as index.html, and its pictures into `folder`, which is made: n.png and n-ways.png of theme n, from
/// 1. If the game's page for browsers lies in the folder "play" in it, the themes that are there have links to it.
/// Throws PathAccessError (75) when that cannot be done.
void WriteGallery(const std::string& folder, std::span<const GalleryTheme> themes);

/// One line on how an item gets to the target, or why it does not: "inside the field".
std::string DescribeWay(const Journey& journey);
/// A tightness as a number of pixels.
std::string DescribeRoom(int room);

}  // namespace sorvex
