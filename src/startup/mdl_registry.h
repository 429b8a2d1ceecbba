// SPDX-License-Identifier: MIT
// Reading and writing registry values. Nothing here throws or shows a message. Statuses are Windows error codes (0:
// ERROR_SUCCESS).
#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "base/numbers.h"
#include "platform/registry.h"

namespace sorvex::mdlRegistry {

/// What a registry value holds: nothing, a string, or a number.
using Variant = std::variant<std::monostate, std::string, Long>;

/// Status for a value of an unsupported type, or whose content does not fit its type.
inline constexpr Long kNotHandled = -1;

/// The value; std::monostate if it cannot be read.
Variant ReadRegistryValue(Registry& registry, RegistryKey hive, const std::string& keyName,
                          const std::string& valueName);

/// Reads a value of type kRegSz (all its bytes, including a terminating zero) or kRegDword; other types return
/// kNotHandled. On failure `value` is unchanged, except that it becomes std::monostate if a string's size but not its
/// bytes could be read.
Long QueryOpenKeyValue(Registry& registry, RegistryKey key, const std::string& valueName, Variant& value);

/// Creates the key and its parents, unless they exist.
void CreateRegistryKey(Registry& registry, RegistryKey hive, const std::string& keyName);

/// Writes a value into an existing key; does nothing if the key cannot be opened.
void WriteRegistryValue(Registry& registry, RegistryKey hive, const std::string& keyName, const std::string& valueName,
                        const Variant& value, std::uint32_t type);

/// Writes `value` as kRegSz (without a terminating zero) or as kRegDword (rounded half to even). Returns 0 without
/// writing for other types, and kNotHandled without writing if a kRegDword's text is not a number or is out of range.
Long SetOpenKeyValue(Registry& registry, RegistryKey key, const std::string& valueName, std::uint32_t type,
                     const Variant& value);

}  // namespace sorvex::mdlRegistry
