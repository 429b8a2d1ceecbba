// SPDX-License-Identifier: MIT
// The game itself: one run from Start to the last item put in.
#pragma once

#include "game/game.h"

namespace sorvex {

/// Composes and presents frames as fast as it can, tests the current item after each, delivers events once a frame and
/// shows the time, until every item is put in, StopRendering or GameEnded is set, or an error has been shown.
void RenderLoop(Game& game);

/// True while RenderLoop runs and nothing has told it to end.
bool GameRuns(const Game& game);

/// What every frame does before it delivers events: composes and presents, then tests the current item against its
/// container and against the target and acts on what it finds. False when that would have repeated the last frame in
/// every respect, and was left out.
bool DrawAndTestFrame(Game& game);

/// Gives the elapsed time's label the time of the running game, in seconds, and returns it.
double ShowElapsed(Game& game);

/// Seconds between two tick counts, rounded half up to hundredths. Throws Overflow (6) when the difference is no Long.
double ElapsedSeconds(Long start, Long now);

}  // namespace sorvex
