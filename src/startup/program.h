// SPDX-License-Identifier: MIT
// The whole program on one desktop: its window, its state, and which handler answers which event.
#pragma once

#include "game/game.h"

namespace sorvex {

class Program {
 public:
  /// Creates the main window and binds its events. Nothing is read yet.
  explicit Program(Desktop& desktop);
  ~Program() = default;
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  /// Start-up, then the main window's load.
  void Initialize();

  frmMain form;
  modVariables state;
  Game game;

 private:
  void BindEvents();
};

/// Runs the program to its end and returns the process's exit code. An error that no game caught is shown in a box.
int RunProgram(Desktop& desktop);

}  // namespace sorvex
