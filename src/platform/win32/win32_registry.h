// SPDX-License-Identifier: MIT
// The Windows registry.
#pragma once

#include "platform/registry.h"

namespace sorvex {

class Win32Registry final : public Registry {
 public:
  Long Open(RegistryKey hive, const std::string& name, std::uint32_t access, RegistryKey& key) override;
  Long Create(RegistryKey hive, const std::string& name, std::uint32_t access, RegistryKey& key) override;
  Long Query(RegistryKey key, const std::string& name, std::uint32_t& type, void* data, std::uint32_t& size) override;
  Long Set(RegistryKey key, const std::string& name, std::uint32_t type, const void* data, std::uint32_t size) override;
  Long Close(RegistryKey key) override;
};

}  // namespace sorvex
