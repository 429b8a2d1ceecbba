// SPDX-License-Identifier: MIT
// Registry values as variants, over the Registry interface.
#include "startup/mdl_registry.h"

#include <algorithm>
#include <cstring>
#include <optional>

#include "base/runtime_error.h"
#include "base/text.h"

namespace sorvex::mdlRegistry {
namespace {

// KEY_QUERY_VALUE, KEY_SET_VALUE, KEY_CREATE_SUB_KEY, KEY_ENUMERATE_SUB_KEYS, KEY_NOTIFY, KEY_CREATE_LINK
constexpr std::uint32_t kAccess = 0x3F;

std::string ToText(const Variant& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  if (const auto* number = std::get_if<Long>(&value)) return std::to_string(*number);
  return {};
}

std::optional<Long> ToNumber(const Variant& value) {
  if (const auto* number = std::get_if<Long>(&value)) return *number;
  const auto* text = std::get_if<std::string>(&value);
  if (text == nullptr) return 0;
  if (!IsNumber(*text)) return std::nullopt;
  try {
    return ToLong(LeadingNumber(*text));
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

}  // namespace

Variant ReadRegistryValue(Registry& registry, RegistryKey hive, const std::string& keyName,
                          const std::string& valueName) {
  RegistryKey key = 0;
  registry.Open(hive, keyName, kAccess, key);
  Variant value;
  QueryOpenKeyValue(registry, key, valueName, value);
  registry.Close(key);
  return value;
}

Long QueryOpenKeyValue(Registry& registry, RegistryKey key, const std::string& valueName, Variant& value) {
  std::uint32_t type = 0;
  std::uint32_t size = 0;
  Long status = registry.Query(key, valueName, type, nullptr, size);
  if (status != 0) return status;
  if (type != kRegSz && type != kRegDword) return kNotHandled;
  const bool isText = type == kRegSz;
  // A damaged registry may hold a kRegDword of more than 4 bytes: read all of them and use the first 4.
  std::string buffer(isText ? size : std::max<std::size_t>(size, sizeof(Long)), '\0');
  status = registry.Query(key, valueName, type, buffer.data(), size);
  if (isText) {
    value = status == 0 ? Variant(buffer.substr(0, size)) : Variant();
  } else if (status == 0) {
    Long number = 0;
    std::memcpy(&number, buffer.data(), sizeof number);
    value = number;
  }
  return status;
}

void CreateRegistryKey(Registry& registry, RegistryKey hive, const std::string& keyName) {
  RegistryKey key = 0;
  registry.Create(hive, keyName, kAccess, key);
  registry.Close(key);
}

void WriteRegistryValue(Registry& registry, RegistryKey hive, const std::string& keyName, const std::string& valueName,
                        const Variant& value, std::uint32_t type) {
  RegistryKey key = 0;
  registry.Open(hive, keyName, kAccess, key);
  SetOpenKeyValue(registry, key, valueName, type, value);
  registry.Close(key);
}

Long SetOpenKeyValue(Registry& registry, RegistryKey key, const std::string& valueName, std::uint32_t type,
                     const Variant& value) {
  if (type == kRegSz) {
    const std::string text = ToText(value);
    // The value's length is defined in characters, so non-ASCII text is stored truncated. (A folder name that is not
    // valid UTF-8 may count more characters than it has bytes.)
    const std::size_t size = std::min(Utf16Length(text), text.size());
    return registry.Set(key, valueName, kRegSz, text.data(), static_cast<std::uint32_t>(size));
  }
  if (type == kRegDword) {
    const std::optional<Long> number = ToNumber(value);
    if (!number) return kNotHandled;
    return registry.Set(key, valueName, kRegDword, &*number, sizeof *number);
  }
  return 0;
}

}  // namespace sorvex::mdlRegistry
