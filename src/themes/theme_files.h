// SPDX-License-Identifier: MIT
// Reading a theme folder: three text files, bitmaps and their masks. docs/themes.md describes the format.
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
inline constexpr int kLinesPerItem = 4;  ///< in kItemsFile

/// A reason why a theme cannot be loaded.
struct Fault {
  std::string_view code;  ///< its kind: one of the names in docs/themes.md
  std::string file;
  int line = 0;  ///< line number from 1; 0: the whole file
  std::string reason;
};

/// Thrown if a theme cannot be loaded. what() is for example "Theme.ini, line 7: 'abc' is not a number".
class ThemeError : public std::runtime_error {
 public:
  explicit ThemeError(const Fault& fault);
};

/// Receives each fault in reading order. Reading stops if it throws; if it returns, reading continues without that
/// piece.
using FaultSink = std::function<void(const Fault&)>;
/// The FaultSink that throws the fault as a ThemeError.
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

/// The content of a theme folder. It is complete unless reading continued after a fault: then a picture that could not
/// be read is null, an item without its four numbers is not in play, and other missing values are default-initialized.
struct Theme {
  ItemTable items;
  std::vector<ItemPictures> pictures;  ///< LastItem + 1 of them
  Picture background;
  Picture background2;  ///< a different picture object with the same content
  Target target;
  Picture targetPicture;
  Picture targetMask;
  Details details;
};

/// Parse Theme.ini (four lines per item), Theme2.ini (the target's position) and ThemeDetails.ini, given as UTF-8.
/// Faults go to `report`.
ItemTable ParseItems(std::string_view text, const FaultSink& report = ThrowThemeError);
Target ParseTarget(std::string_view text, const FaultSink& report = ThrowThemeError);
Details ParseDetails(std::string_view text);

/// True if the folder contains Theme.ini and Theme2.ini, without which it is not read.
bool IsComplete(const std::string& folder);

/// True if a text file, decoded to UTF-8, appears to have been UTF-16.
bool LooksLikeUtf16(std::string_view text);

/// Reads the whole folder, without side effects. Faults go to `report`.
Theme ReadTheme(const std::string& folder, const FaultSink& report = ThrowThemeError);

}  // namespace sorvex
