// SPDX-License-Identifier: MIT
// Registry keys and values in Windows' `.reg` text form (REGEDIT4). Names are equal when they differ only in the case
// of A to Z; what cannot be read goes through unchanged.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sorvex {

struct RegistryValue {
  std::string name;  ///< empty: the key's default value
  std::uint32_t type = 0;
  std::string bytes;
};

/// The paths of keys begin with a hive's name: "HKEY_LOCAL_MACHINE\Software". They and the values' names must be
/// `IsWritableName`.
class RegistryText {
 public:
  /// nullopt when `text` does not begin with the line REGEDIT4. Lines after it that cannot be read count as absent.
  static std::optional<RegistryText> Parse(std::string_view text);

  std::string Text() const;

  /// True when the key or one inside it stands in the text; hives always exist.
  bool HasKey(std::string_view path) const;
  /// Adds a key, with the spelling that its parents already have.
  void AddKey(const std::string& path);

  /// nullptr when there is none. As when the text is imported, the last of several lines for one value counts.
  const RegistryValue* FindValue(std::string_view path, std::string_view name) const;
  /// Adds or replaces a value; a name that is there keeps its spelling.
  void PutValue(const std::string& path, RegistryValue value);

 private:
  struct Entry {
    std::string text;
    std::optional<RegistryValue> value;  ///< none: an empty line, a comment, what cannot be read
  };
  struct Key {
    std::string heading;  ///< the line in brackets
    std::string path;     ///< empty when the heading cannot be read
    std::vector<Entry> entries;
  };

  static Entry ParseEntry(std::string_view line, std::string_view& rest);
  static Entry MakeEntry(RegistryValue value);
  const Key* FindAtOrInside(std::string_view path) const;

  std::vector<Key> keys_ = std::vector<Key>(1);  ///< in the order of the text; the first has no heading
};

/// True when the text form can hold a key's or a value's name: no line end, no zero.
bool IsWritableName(std::string_view name);

}  // namespace sorvex
