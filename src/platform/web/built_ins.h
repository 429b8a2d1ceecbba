// SPDX-License-Identifier: MIT
// Where the built-in pictures lie in the program's file system, and fonts as the page takes them.
#pragma once

#include "platform/controls.h"
#include "platform/picture.h"

namespace sorvex {

/// The picture's file; empty for None.
constexpr const char* FileOf(BuiltIn which) {
  switch (which) {
    case BuiltIn::None: return "";
    case BuiltIn::WindowIcon: return "/assets/window.ico";
    case BuiltIn::HighScoresPanel: return "/assets/highscores.jpg";
    case BuiltIn::Canvas: return "/assets/canvas.jpg";
    case BuiltIn::FolderIcon: return "/assets/folder.ico";
    case BuiltIn::AboutIcon: return "/assets/about.ico";
    case BuiltIn::InfoHandCursor: return "/assets/hand_info.cur";
    case BuiltIn::LinkHandCursor: return "/assets/hand_link.cur";
    case BuiltIn::Logo: return "/assets/logo.gif";
  }
  return "";
}

/// A font's height in pixels, 96 to the inch.
constexpr double PixelsOf(const Font& font) { return static_cast<double>(font.points) * 96 / 72; }

}  // namespace sorvex
