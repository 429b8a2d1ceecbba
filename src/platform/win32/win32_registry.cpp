// SPDX-License-Identifier: MIT
// Calls the registry functions of the Windows API.
#include "platform/win32/win32_registry.h"

#include <windows.h>

#include "platform/win32/text.h"

namespace sorvex {
namespace {

// Registry handles have 32 significant bits, sign-extended to 64.
HKEY ToNative(RegistryKey key) { return reinterpret_cast<HKEY>(static_cast<INT_PTR>(static_cast<int>(key))); }
RegistryKey FromNative(HKEY key) { return static_cast<RegistryKey>(reinterpret_cast<UINT_PTR>(key)); }

}  // namespace

Long Win32Registry::Open(RegistryKey hive, const std::string& name, std::uint32_t access, RegistryKey& key) {
  HKEY opened = ToNative(key);
  const LSTATUS status = ::RegOpenKeyExA(ToNative(hive), ToAnsi(name).c_str(), 0, access, &opened);
  key = FromNative(opened);
  return status;
}

Long Win32Registry::Create(RegistryKey hive, const std::string& name, std::uint32_t access, RegistryKey& key) {
  HKEY created = ToNative(key);
  DWORD disposition = 0;
  const LSTATUS status = ::RegCreateKeyExA(ToNative(hive), ToAnsi(name).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                           access, nullptr, &created, &disposition);
  key = FromNative(created);
  return status;
}

Long Win32Registry::Query(RegistryKey key, const std::string& name, std::uint32_t& type, void* data,
                          std::uint32_t& size) {
  DWORD storedType = type;
  DWORD bytes = size;
  const LSTATUS status =
      ::RegQueryValueExA(ToNative(key), ToAnsi(name).c_str(), nullptr, &storedType, static_cast<BYTE*>(data), &bytes);
  type = storedType;
  size = bytes;
  return status;
}

Long Win32Registry::Set(RegistryKey key, const std::string& name, std::uint32_t type, const void* data,
                        std::uint32_t size) {
  const auto* given = static_cast<const char*>(data);
  std::string bytes = type == kRegSz ? ToAnsi(given) : std::string(given, size);
  bytes.resize(size);
  bytes += '.';  // RegSetValueEx would also store a zero byte that happens to follow the text
  return ::RegSetValueExA(ToNative(key), ToAnsi(name).c_str(), 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                          size);
}

Long Win32Registry::Close(RegistryKey key) { return ::RegCloseKey(ToNative(key)); }

}  // namespace sorvex
