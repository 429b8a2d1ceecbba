// SPDX-License-Identifier: MIT
// The program: main window, game state, and the binding of handlers to events.
#pragma once

#include "game/game.h"

namespace sorvex {

class Program {
 public:
  /// Creates the main window and binds its events. Reads no files yet.
  explicit Program(Desktop& desktop);
  ~Program() = default;
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  /// Runs the main window's initialize handler, then its load handler.
  void Initialize();

  frmMain form;
  modVariables state;
  Game game;

 private:
  void BindEvents();
};

/// Runs the program until it ends and returns the process's exit code. Errors that no game caught are shown in a box.
int RunProgram(Desktop& desktop);

}  // namespace sorvex
