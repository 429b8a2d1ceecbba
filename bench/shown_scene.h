// SPDX-License-Identifier: MIT
// A generated game in a real window, and the frames of it that are timed. Knows no front end.
#pragma once

#include <functional>

#include "scene.h"

namespace sorvex::bench {

/// Shows the game's window, calls `play` once it is up, and closes it.
void PlayInWindow(Desktop& desktop, const SceneDesign& design, const std::function<void(Scene&)>& play);

/// Takes item 0 to where it can move up and down by 3 pixels without a touch.
void PrepareToMove(Scene& scene);
/// The next frame after item 0 moved by 3 pixels, there and back by turns.
void ShowMovingFrame(Scene& scene, int turn);
/// A frame of which nothing is known yet.
void ShowFullFrame(Scene& scene);

/// The mean time in milliseconds of `work`, called with 0, 1, ...; `await` returns once what it asked for is done.
double MeanTime(const std::function<void(int)>& work, const std::function<void()>& await);

}  // namespace sorvex::bench
