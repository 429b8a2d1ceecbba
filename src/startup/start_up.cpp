// SPDX-License-Identifier: MIT
// Recording the program's folder.
#include "startup/start_up.h"

#include <string>

#include "startup/mdl_registry.h"

namespace sorvex {
namespace {

constexpr char kKey[] = "Software\\Quennet\\Sorvex";
constexpr char kPathValue[] = "Path";

bool IsEmptyText(const mdlRegistry::Variant& value) {
  const auto* text = std::get_if<std::string>(&value);
  return std::holds_alternative<std::monostate>(value) || (text != nullptr && text->empty());
}

}  // namespace

void Form_Initialize(Game& game) {
  Registry& registry = game.desktop.SystemRegistry();
  if (IsEmptyText(mdlRegistry::ReadRegistryValue(registry, kLocalMachine, kKey, kPathValue)))
    mdlRegistry::CreateRegistryKey(registry, kLocalMachine, kKey);
  mdlRegistry::WriteRegistryValue(registry, kLocalMachine, kKey, kPathValue, game.desktop.ProgramFolder(), kRegSz);
  game.state.ThemeName = kDefaultTheme;
}

}  // namespace sorvex
