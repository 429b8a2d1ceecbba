// SPDX-License-Identifier: MIT
// The frame loop: one game from Start until the last item is put in.
#pragma once

#include "game/game.h"

namespace sorvex {

/// Composes and presents frames as fast as it can. After each frame it tests the current item, delivers events once and
/// shows the elapsed time. Returns when every item is put in, StopRendering or GameEnded is set, or an error occurred,
/// which it shows in a box.
void RenderLoop(Game& game);

/// True while RenderLoop runs and has not been told to end.
bool GameRuns(const Game& game);

/// The part of a frame before event delivery: composes and presents it, tests the current item against its container
/// and the target, and acts on the results. Returns false, without doing any of this, if nothing has changed since the
/// last frame.
bool DrawAndTestFrame(Game& game);

/// Shows the running game's elapsed time in its label and returns it, in seconds.
double ShowElapsed(Game& game);

/// Seconds between two tick counts (milliseconds), rounded half up to hundredths. Throws Overflow (6) if the difference
/// does not fit a Long.
double ElapsedSeconds(Long start, Long now);

}  // namespace sorvex
