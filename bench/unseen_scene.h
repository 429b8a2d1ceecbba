// SPDX-License-Identifier: MIT
// A generated game without a window.
#pragma once

#include "platform/headless/headless_desktop.h"
#include "scene.h"

namespace sorvex::bench {

/// A game on the headless front end.
struct UnseenScene : private HeadlessDesktop, Scene {
  explicit UnseenScene(const SceneDesign& design) : HeadlessDesktop(""), Scene(*this, design) {}
};

}  // namespace sorvex::bench
