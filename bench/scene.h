// SPDX-License-Identifier: MIT
// Generated games of three sizes for benchmarks: random colors, ragged items, U-shaped containers, a ring as target.
#pragma once

#include <cstdint>
#include <filesystem>

#include "game/game.h"

namespace sorvex::bench {

struct SceneDesign {
  const char* name;
  Size field;
  int items;
  Size item;
  Size container;
  Size target;
};

inline constexpr SceneDesign kScenes[] = {
    {"S", {320, 240}, 3, {42, 15}, {52, 58}, {110, 75}},
    {"M", {800, 600}, 10, {48, 48}, {80, 160}, {150, 120}},
    {"L", {1920, 1080}, 21, {96, 96}, {160, 320}, {300, 240}},
};

/// A game in progress in which item 0 is inside its container without touching it.
class Scene {
 public:
  Scene(Desktop& desktop, const SceneDesign& design);

  frmMain form;
  modVariables state;
  Game game;
};

/// Writes the scene as a theme into `folder`.
void WriteTheme(const Scene& scene, const std::filesystem::path& folder);

}  // namespace sorvex::bench
