// SPDX-License-Identifier: MIT
// Reading a theme folder: three small text files, bitmaps and their masks. See docs/themes.md for the format.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "game/mod_variables.h"
#include "platform/desktop.h"
#include "platform/picture.h"

namespace sorvex {

/// Why a theme cannot be loaded: "Theme.ini, line 7: 'abc' is not a number".
class ThemeError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Target {
  Integer x = 0;
  Integer y = 0;
};

struct Details {
  std::string description;
  std::string date;
};

/// One item's four pictures.
struct ItemPictures {
  Picture item;
  Picture itemMask;
  Picture container;
  Picture containerMask;
};

/// All that a theme folder holds, complete.
struct Theme {
  ItemTable items;
  std::vector<ItemPictures> pictures;  ///< LastItem + 1 of them
  Picture background;
  Picture background2;  ///< same content, another picture object
  Target target;
  Picture targetPicture;
  Picture targetMask;
  Details details;
};

/// The contents of Theme.ini (item groups of four lines), Theme2.ini (the target's place) and ThemeDetails.ini, given
/// as UTF-8. The first two throw ThemeError.
ItemTable ParseItems(std::string_view text);
Target ParseTarget(std::string_view text);
Details ParseDetails(std::string_view text);

/// Whether the folder holds the two files without which nothing is loaded from it.
bool IsComplete(const std::string& folder);

/// Reads the whole folder; throws ThemeError naming the first file that cannot be used. Nothing else is touched.
Theme ReadTheme(Desktop& desktop, const std::string& folder);

}  // namespace sorvex
