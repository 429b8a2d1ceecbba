// SPDX-License-Identifier: MIT
// Reading theme.toml, the description from which a theme is made.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kit/findings.h"

namespace sorvex {

inline constexpr char kSourceFile[] = "theme.toml";

/// A file that a source names, and the line that names it.
struct NamedFile {
  std::string path;  ///< relative to the source's folder; empty: none that can be used
  int line = 0;
};

struct SourceItem {
  NamedFile picture;
  NamedFile container;
  Place containerAt;
  std::optional<Place> at;  ///< none: at its rest place
  int line = 0;
};

/// The sounds of a theme: the source's key and the theme's file.
struct Sound {
  const char* key;
  const char* file;
};
inline constexpr std::array<Sound, 4> kSounds{
    {{"pickup", "Pickup.wav"}, {"let_go", "LetGo.wav"}, {"hit", "HitTube.wav"}, {"put_in", "PutInCont.wav"}}};

struct ThemeSource {
  std::string folder;
  std::string file;  ///< in that folder
  std::string description;
  std::string date;
  NamedFile background;
  int threshold = 128;  ///< the least alpha of an opaque pixel
  NamedFile target;
  Place targetAt;
  std::array<std::optional<NamedFile>, kSounds.size()> sounds;
  std::vector<SourceItem> items;
};

/// Reads the source in the folder `path`, or the file `path`. What is wrong with it goes to `findings`; then the result
/// is incomplete. No file that it names is looked at.
ThemeSource ReadSource(const std::string& path, Findings& findings);

}  // namespace sorvex
