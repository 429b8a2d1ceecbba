// SPDX-License-Identifier: MIT
// Reading a theme folder: three small text files, bitmaps and their masks. See docs/themes.md for the format.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "game/mod_variables.h"
#include "platform/picture.h"

namespace sorvex {

inline constexpr char kItemsFile[] = "Theme.ini";
inline constexpr char kTargetFile[] = "Theme2.ini";
inline constexpr char kDetailsFile[] = "ThemeDetails.ini";
inline constexpr int kLinesPerItem = 4;  ///< in the items' file

/// A reason why a theme cannot be loaded.
struct Fault {
  std::string_view code;  ///< what kind it is: one of the names in docs/themes.md
  std::string file;
  int line = 0;  ///< from 1; 0: the whole file
  std::string reason;
};

/// Why a theme cannot be loaded: "Theme.ini, line 7: 'abc' is not a number".
class ThemeError : public std::runtime_error {
 public:
  explicit ThemeError(const Fault& fault);
};

/// Is told of each fault in the order of reading, which ends where it throws and otherwise goes on without that piece.
using FaultSink = std::function<void(const Fault&)>;
[[noreturn]] void ThrowThemeError(const Fault& fault);

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

/// All that a theme folder holds. Complete, unless reading went on behind a fault: then a picture that could not be
/// read is null, an item without its four numbers is not in play, and what is missing of the rest has its first value.
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
/// as UTF-8.
ItemTable ParseItems(std::string_view text, const FaultSink& report = ThrowThemeError);
Target ParseTarget(std::string_view text, const FaultSink& report = ThrowThemeError);
Details ParseDetails(std::string_view text);

/// Whether the folder holds the two files without which nothing is loaded from it.
bool IsComplete(const std::string& folder);

/// Whether a text file's content, as UTF-8, is UTF-16 taken for something else.
bool LooksLikeUtf16(std::string_view text);

/// Reads the whole folder. Nothing else is touched.
Theme ReadTheme(const std::string& folder, const FaultSink& report = ThrowThemeError);

}  // namespace sorvex
