// SPDX-License-Identifier: MIT
// Registry functions with the statuses and byte counts of the Windows API.
#include "platform/map_registry.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace sorvex {
namespace {

constexpr Long kSuccess = 0;
constexpr Long kFileNotFound = 2;
constexpr Long kAccessDenied = 5;
constexpr Long kInvalidHandle = 6;
constexpr Long kInvalidParameter = 87;
constexpr Long kMoreData = 234;

// KEY_QUERY_VALUE, KEY_SET_VALUE
constexpr std::uint32_t kQueryValue = 0x01;
constexpr std::uint32_t kSetValue = 0x02;
constexpr std::uint32_t kAllOfThem = 0x3F;

bool IsKeyName(std::string_view name) { return !name.starts_with('\\') && name.find("\\\\") == std::string_view::npos; }

std::string Joined(const std::string& base, std::string_view name) {
  if (name.ends_with('\\')) name.remove_suffix(1);
  return name.empty() ? base : base + '\\' + std::string(name);
}

char Lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

bool MapRegistry::LessIgnoringCase::operator()(const std::string& a, const std::string& b) const {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                      [](char x, char y) { return Lowered(x) < Lowered(y); });
}

const MapRegistry::OpenKey* MapRegistry::Find(RegistryKey key) const {
  static const OpenKey localMachine{"HKEY_LOCAL_MACHINE", kAllOfThem};
  if (key == kLocalMachine) return &localMachine;
  const auto found = open_.find(key);
  return found == open_.end() ? nullptr : &found->second;
}

// A key also exists if only one of its subkeys is stored.
bool MapRegistry::HasKey(const std::string& path) const {
  if (path.find('\\') == std::string::npos || content.contains(path)) return true;
  const std::string inside = path + '\\';
  const auto first = content.lower_bound(inside);
  const LessIgnoringCase less;
  return first != content.end() && !less(first->first.substr(0, inside.size()), inside) &&
         !less(inside, first->first.substr(0, inside.size()));
}

Long MapRegistry::Change(Content changed) {
  const Long status = store_ ? store_(changed) : kSuccess;
  if (status == kSuccess) content = std::move(changed);
  return status;
}

Long MapRegistry::Open(RegistryKey hive, const std::string& name, std::uint32_t access, RegistryKey& key) {
  const OpenKey* base = Find(hive);
  if (base == nullptr) return kInvalidHandle;
  const std::string path = Joined(base->path, name);
  if (!HasKey(path)) return kFileNotFound;
  key = ++lastHandle_;
  open_[key] = {path, access};
  return kSuccess;
}

Long MapRegistry::Create(RegistryKey hive, const std::string& name, std::uint32_t access, RegistryKey& key) {
  const OpenKey* base = Find(hive);
  if (base == nullptr) return kInvalidHandle;
  if (!IsKeyName(name)) return kInvalidParameter;
  // Not stored: a key without values is created again when it is needed.
  content.try_emplace(Joined(base->path, name));
  return Open(hive, name, access, key);
}

Long MapRegistry::Query(RegistryKey key, const std::string& name, std::uint32_t& type, void* data,
                        std::uint32_t& size) {
  const OpenKey* open = Find(key);
  if (open == nullptr) return kInvalidHandle;
  if ((open->access & kQueryValue) == 0) return kAccessDenied;
  const auto values = content.find(open->path);
  if (values == content.end() || !values->second.contains(name)) return kFileNotFound;
  const Value& value = values->second.at(name);
  const std::uint32_t room = std::exchange(size, static_cast<std::uint32_t>(value.bytes.size()));
  type = value.type;
  if (data == nullptr) return kSuccess;
  if (room < value.bytes.size()) return kMoreData;
  std::copy(value.bytes.begin(), value.bytes.end(), static_cast<char*>(data));
  return kSuccess;
}

Long MapRegistry::Set(RegistryKey key, const std::string& name, std::uint32_t type, const void* data,
                      std::uint32_t size) {
  const OpenKey* open = Find(key);
  if (open == nullptr) return kInvalidHandle;
  if ((open->access & kSetValue) == 0) return kAccessDenied;
  const Value value{type, {static_cast<const char*>(data), size}};
  Content changed = content;
  Value& stored = changed[open->path][name];
  // Every start of the program writes the same value: do not write the file again.
  if (stored == value) return kSuccess;
  stored = value;
  return Change(std::move(changed));
}

Long MapRegistry::Close(RegistryKey key) {
  return key == kLocalMachine || open_.erase(key) != 0 ? kSuccess : kInvalidHandle;
}

}  // namespace sorvex
