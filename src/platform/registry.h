// SPDX-License-Identifier: MIT
// The registry as the game uses it: five functions after their namesakes of Windows.
#pragma once

#include <cstdint>
#include <string>

#include "base/numbers.h"

namespace sorvex {

/// A registry hive or an open key; 0 is no key.
using RegistryKey = std::uint32_t;
inline constexpr RegistryKey kLocalMachine = 0x80000002;  ///< HKEY_LOCAL_MACHINE
/// Types of registry values: text, and a number of 4 bytes.
inline constexpr std::uint32_t kRegSz = 1;
inline constexpr std::uint32_t kRegDword = 4;

/// After RegOpenKeyExA, RegCreateKeyExA, RegQueryValueExA, RegSetValueExA and RegCloseKey (winreg.h); each returns that
/// function's status (0: ERROR_SUCCESS).
class Registry {
 public:
  virtual ~Registry() = default;

  virtual Long Open(RegistryKey hive, const std::string& name, std::uint32_t access, RegistryKey& key) = 0;
  virtual Long Create(RegistryKey hive, const std::string& name, std::uint32_t access, RegistryKey& key) = 0;
  /// `data` may be null to learn type and size; `size` is the buffer's size in bytes and becomes the value's.
  virtual Long Query(RegistryKey key, const std::string& name, std::uint32_t& type, void* data,
                     std::uint32_t& size) = 0;
  /// `data` of kRegSz is UTF-8 up to a zero, and `size` how many bytes of it to store in the system's 8-bit encoding.
  virtual Long Set(RegistryKey key, const std::string& name, std::uint32_t type, const void* data,
                   std::uint32_t size) = 0;
  virtual Long Close(RegistryKey key) = 0;
};

}  // namespace sorvex
