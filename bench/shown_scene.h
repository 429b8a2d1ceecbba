// SPDX-License-Identifier: MIT
// A generated game in a real window, and the frames that are timed. Front-end independent.
#pragma once

#include <functional>

#include "scene.h"

namespace sorvex::bench {

/// Shows the game's window, calls `play` once, and closes the window.
void PlayInWindow(Desktop& desktop, const SceneDesign& design, const std::function<void(Scene&)>& play);

/// Moves item 0 to where it can move up and down by 3 pixels without contact.
void PrepareToMove(Scene& scene);
/// Moves item 0 by 3 pixels, up and down alternately by `turn`, and shows the frame.
void ShowMovingFrame(Scene& scene, int turn);
/// Shows a frame with a full redraw, as if nothing were known of the last one.
void ShowFullFrame(Scene& scene);

/// The mean time of `work` in milliseconds. Calls it with 0, 1, ...; `await` blocks until its drawing is finished.
double MeanTime(const std::function<void(int)>& work, const std::function<void()>& await);

}  // namespace sorvex::bench
