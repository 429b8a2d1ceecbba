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

/// The page. Theme n's pictures are the files n.png and n-ways.png beside it, counted from 1.
std::string GalleryPage(std::span<const GalleryTheme> themes);

/// Writes the page, as index.html, and its pictures into `folder`, which is made. Throws PathAccessError (75) when that
/// cannot be done.
void WriteGallery(const std::string& folder, std::span<const GalleryTheme> themes);

/// One line on how an item gets to the target, or why it does not: "inside the field".
std::string DescribeWay(const Journey& journey);
/// A tightness as a number of pixels.
std::string DescribeRoom(int room);

}  // namespace sorvex
