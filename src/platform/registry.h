// SPDX-License-Identifier: MIT
// The registry interface: five functions modeled on the Windows API.
#pragma once

#include <cstdint>
#include <string>

#include "base/numbers.h"

namespace sorvex {

/// A registry hive or the handle of an open key; 0 is invalid.
using RegistryKey = std::uint32_t;
inline constexpr RegistryKey kLocalMachine = 0x80000002;  ///< HKEY_LOCAL_MACHINE
/// Types of registry values (winnt.h): text, and a 4-byte number.
inline constexpr std::uint32_t kRegSz = 1;
inline constexpr std::uint32_t kRegDword = 4;

/// The functions behave like RegOpenKeyExA, RegCreateKeyExA, RegQueryValueExA, RegSetValueExA and RegCloseKey
/// (winreg.h) and return their statuses (0: ERROR_SUCCESS).
class Registry {
 public:
  virtual ~Registry() = default;

  virtual Long Open(RegistryKey hive, const std::string& name, std::uint32_t access, RegistryKey& key) = 0;
  virtual Long Create(RegistryKey hive, const std::string& name, std::uint32_t access, RegistryKey& key) = 0;
  /// `data` may be null to query type and size only. `size` is the size of `data` in bytes and is set to the value's.
  virtual Long Query(RegistryKey key, const std::string& name, std::uint32_t& type, void* data,
                     std::uint32_t& size) = 0;
  /// For kRegSz, `data` is zero-terminated UTF-8, and `size` the number of bytes to store after conversion to the
  /// system's 8-bit encoding.
  virtual Long Set(RegistryKey key, const std::string& name, std::uint32_t type, const void* data,
                   std::uint32_t size) = 0;
  virtual Long Close(RegistryKey key) = 0;
};

}  // namespace sorvex
