// SPDX-License-Identifier: MIT
// The few things the program does with the registry: read a value, create a key, write a value. Nothing here throws or
// shows a message; a status is the registry functions' own (winreg.h; 0 is success).
#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "base/numbers.h"
#include "platform/registry.h"

namespace sorvex::mdlRegistry {

/// What a registry value holds: nothing, a string, or a number.
using Variant = std::variant<std::monostate, std::string, Long>;

/// Status of a value whose type, or whose content for that type, is not handled.
inline constexpr Long kNotHandled = -1;

/// The value, nothing when it could not be read.
Variant ReadRegistryValue(Registry& registry, RegistryKey hive, const std::string& keyName,
                          const std::string& valueName);

/// Reads a value of type kRegSz (all its bytes, a terminating zero included) or kRegDword. On failure `value` stays as
/// it was, except that a string which could not be fetched leaves nothing. Other types give kNotHandled.
Long QueryOpenKeyValue(Registry& registry, RegistryKey key, const std::string& valueName, Variant& value);

/// Creates the key and its parents; one that exists stays.
void CreateRegistryKey(Registry& registry, RegistryKey hive, const std::string& keyName);

/// Writes a value into a key that exists; without one nothing happens.
void WriteRegistryValue(Registry& registry, RegistryKey hive, const std::string& keyName, const std::string& valueName,
                        const Variant& value, std::uint32_t type);

/// Stores `value` as kRegSz (without a terminating zero) or as kRegDword (rounded half to even); other types write
/// nothing and give 0. Text that is not a number, or leaves the range, is no kRegDword: kNotHandled, nothing written.
Long SetOpenKeyValue(Registry& registry, RegistryKey key, const std::string& valueName, std::uint32_t type,
                     const Variant& value);

}  // namespace sorvex::mdlRegistry
