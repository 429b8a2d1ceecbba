// SPDX-License-Identifier: MIT
// The state of a game in progress: item table, target position, current item and container, loop control.
#pragma once

#include <array>
#include <string>

#include "base/numbers.h"
#include "base/runtime_error.h"

namespace sorvex {

/// A fixed array with indices 0 to N - 1; any other index throws SubscriptOutOfRange (9).
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

/// The part of the state that a theme load replaces. Positions are top-left corners in pixels of the play field.
struct ItemTable {
  Long LastItem = -1;  ///< highest item index; -1: no items
  Slots<Integer, kMostItems> ItemX, ItemY;
  Slots<Integer, kMostItems> ContX, ContY;
  Slots<bool, kMostItems> ItemInPlay, ContInPlay;
  bool operator==(const ItemTable&) const = default;
};

/// True if no item of the table is in play: the game is over.
inline bool EveryItemIsPutIn(const ItemTable& items) {
  for (Long i = 0; i <= items.LastItem; ++i)
    if (items.ItemInPlay(i)) return false;
  return true;
}

struct modVariables : ItemTable {
  Slots<Integer, 5> PlainX, PlainY;  ///< the target's top-left corner; only element 0 is used
  Integer CurItem = 0;               ///< the item that is dragged, tested and sent back
  Integer CurCont = 0;               ///< the container that is drawn, and removed when an item is put in
  Long GameStart = 0;                ///< tick count at which the running game started
  bool GameEnded = false;            ///< ends the frame loop at once, which checks it after event delivery
  std::string ThemeName;             ///< name of the current theme's folder, beside the executable

  unsigned ThemeLoads = 0;  ///< how many themes have been loaded onto the window
  ItemTable LoadedItems;    ///< the item table as the last theme load set it

  /// State of the Start command. `Restarting`: Start was pressed during a game, which ends so that a new one can begin.
  /// While `Preparing`, Start is ignored.
  enum class Start { Idle, Preparing, Playing, Restarting } StartCommand = Start::Idle;
};

}  // namespace sorvex
