// SPDX-License-Identifier: MIT
// A player at a screen: sees pixels and titles, has a pointer and a keyboard. Knows of windows what every X client has,
// so that it can play on any toolkit's window.
#pragma once

#include <string>
#include <vector>

#include "base/bitmap.h"
#include "base/rectangle.h"

struct _XDisplay;

namespace sorvex {

class Player {
 public:
  using WindowId = unsigned long;

  /// Sits down at the X display and waits for its window manager if it is to have one.
  Player(const std::string& display, bool managed);
  ~Player();
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;

  /// Windows on the screen, in the order of their appearance.
  std::vector<std::string> Titles() const;
  /// The newest window with that title; 0 when there is none.
  WindowId Find(const std::string& title) const;
  bool HasFocus(WindowId window) const;
  /// Inside the frame, on the screen.
  Rectangle ClientArea(WindowId window) const;
  Bitmap Look(const Rectangle& screenPart) const;

  void Move(int x, int y);
  void Press(unsigned button = 1) { Button(button, true); }
  void Release(unsigned button = 1) { Button(button, false); }
  /// By the name of its symbol.
  void Key(const std::string& key, bool down);
  void Tap(const std::string& key, const std::string& modifier = {});
  /// Letters, digits and spaces.
  void Type(const std::string& text);
  void UseCloseBox(WindowId window);

 private:
  void Button(unsigned button, bool down);
  unsigned long Atom(const char* name) const;
  std::vector<WindowId> Windows() const;
  std::string TitleOf(WindowId window) const;

  _XDisplay* display_;
  bool managed_;
};

}  // namespace sorvex
