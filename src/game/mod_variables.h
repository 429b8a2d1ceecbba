// SPDX-License-Identifier: MIT
// The state of a game in progress: the item table, the target, what is current, what ends the frame loop.
#pragma once

#include <array>
#include <string>

#include "base/numbers.h"
#include "base/runtime_error.h"

namespace sorvex {

/// A fixed array counted from 0; an index outside is error 9.
template <class T, int N>
class Slots {
 public:
  T& operator()(Long index) { return values_[Checked(index)]; }
  const T& operator()(Long index) const { return values_[Checked(index)]; }
  bool operator==(const Slots&) const = default;

 private:
  static std::size_t Checked(Long index) {
    if (index < 0 || index >= N) throw SubscriptOutOfRange();
    return static_cast<std::size_t>(index);
  }
  std::array<T, N> values_{};
};

inline constexpr int kMostItems = 21;
inline constexpr char kDefaultTheme[] = "Theme1";

/// What a theme load makes anew. Positions are top-left corners in pixels of the play field.
struct ItemTable {
  Long LastItem = -1;  ///< highest item number; -1: no items
  Slots<Integer, kMostItems> ItemX, ItemY;
  Slots<Integer, kMostItems> ContX, ContY;
  Slots<bool, kMostItems> ItemInPlay, ContInPlay;
  bool operator==(const ItemTable&) const = default;
};

/// True when no item of the table is in play: the game is over.
inline bool EveryItemIsPutIn(const ItemTable& items) {
  for (Long i = 0; i <= items.LastItem; ++i)
    if (items.ItemInPlay(i)) return false;
  return true;
}

struct modVariables : ItemTable {
  Slots<Integer, 5> PlainX, PlainY;  ///< the target; only element 0 is used
  Integer CurItem = 0;               ///< picked up, dragged, tested, sent back
  Integer CurCont = 0;               ///< drawn, and taken out of play with the item put in
  Long GameStart = 0;                ///< the tick count from which the running game's elapsed time counts
  bool GameEnded = false;            ///< a frame loop that finds it set after its event delivery leaves at once
  std::string ThemeName;             ///< the current theme's folder, beside the executable

  unsigned ThemeLoads = 0;  ///< how many themes have been put onto the window
  ItemTable LoadedItems;    ///< the item table as the last of them had it

  /// Where the Start command stands. `Restarting`: it was given again while it plays, so that game ends and a new one
  /// begins. A Start that comes while a game is prepared is ignored.
  enum class Start { Idle, Preparing, Playing, Restarting } StartCommand = Start::Idle;
};

}  // namespace sorvex
