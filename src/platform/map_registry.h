// SPDX-License-Identifier: MIT
// A registry for systems without one, kept in a map that a front end may store.
#pragma once

#include <functional>
#include <map>
#include <string>

#include "platform/registry.h"

namespace sorvex {

/// Returned statuses: 0 ERROR_SUCCESS; 2 ERROR_FILE_NOT_FOUND, no such key or value; 5 ERROR_ACCESS_DENIED; 6
/// ERROR_INVALID_HANDLE; 87 ERROR_INVALID_PARAMETER, not a valid key name; 234 ERROR_MORE_DATA. Names are compared
/// ignoring the case of A to Z, and keep the spelling they were created with.
class MapRegistry final : public Registry {
 public:
  struct LessIgnoringCase {
    bool operator()(const std::string& a, const std::string& b) const;
  };
  struct Value {
    std::uint32_t type = 0;
    std::string bytes;
    bool operator==(const Value&) const = default;
  };
  using Values = std::map<std::string, Value, LessIgnoringCase>;
  /// The values of each key, by its path: "HKEY_LOCAL_MACHINE\Software\Quennet".
  using Content = std::map<std::string, Values, LessIgnoringCase>;
  /// Stores the content and returns a status. If that is not 0, the change is undone and returns the same status.
  using Store = std::function<Long(const Content&)>;

  explicit MapRegistry(Content stored = {}, Store store = nullptr)
      : content(std::move(stored)), store_(std::move(store)) {}

  Long Open(RegistryKey hive, const std::string& name, std::uint32_t access, RegistryKey& key) override;
  Long Create(RegistryKey hive, const std::string& name, std::uint32_t access, RegistryKey& key) override;
  Long Query(RegistryKey key, const std::string& name, std::uint32_t& type, void* data, std::uint32_t& size) override;
  Long Set(RegistryKey key, const std::string& name, std::uint32_t type, const void* data, std::uint32_t size) override;
  Long Close(RegistryKey key) override;

  Content content;

 private:
  struct OpenKey {
    std::string path;
    std::uint32_t access = 0;
  };

  const OpenKey* Find(RegistryKey key) const;
  bool HasKey(const std::string& path) const;
  Long Change(Content changed);

  Store store_;
  std::map<RegistryKey, OpenKey> open_;
  RegistryKey lastHandle_ = 0;
};

}  // namespace sorvex
