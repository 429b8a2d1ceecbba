// SPDX-License-Identifier: MIT
// Reading and writing the `.reg` text form.
#include "platform/posix/registry_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <iterator>
#include <utility>

#include "base/text.h"
#include "platform/desktop.h"

namespace sorvex {
namespace {

constexpr std::uint32_t kBinary = 3;  // REG_BINARY, the one type that is plain `hex:`
constexpr std::string_view kHeader = "REGEDIT4";
constexpr std::string_view kLineEnd = "\r\n";

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

bool Take(std::string_view& text, std::string_view token) {
  if (!text.starts_with(token)) return false;
  text.remove_prefix(token.size());
  return true;
}

template <class Number>
std::optional<Number> TakeHex(std::string_view& text) {
  Number number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, 16);
  if (error != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return number;
}

std::optional<std::string> TakeQuoted(std::string_view& text) {
  if (!Take(text, "\"")) return std::nullopt;
  std::string unquoted;
  while (!text.empty() && text.front() != '"') {
    if (Take(text, "\\") && !text.starts_with('\\') && !text.starts_with('"')) return std::nullopt;
    unquoted += text.front();
    text.remove_prefix(1);
  }
  if (!Take(text, "\"")) return std::nullopt;
  return unquoted;
}

std::optional<std::string> HexBytes(std::string_view list) {
  std::string bytes;
  list = Trimmed(list);
  for (bool more = !list.empty(); more;) {
    const auto byte = TakeHex<std::uint8_t>(list);
    if (!byte) return std::nullopt;
    bytes += static_cast<char>(*byte);
    list = Trimmed(list);
    more = Take(list, ",");
    list = Trimmed(list);
  }
  return list.empty() ? std::optional(bytes) : std::nullopt;
}

std::optional<RegistryValue> HexValue(std::string name, std::string_view text) {
  std::optional<std::uint32_t> type = kBinary;
  if (Take(text, "(")) {
    type = TakeHex<std::uint32_t>(text);
    if (!type || !Take(text, ")")) return std::nullopt;
  }
  if (!Take(text, ":")) return std::nullopt;
  std::optional<std::string> bytes = HexBytes(text);
  if (!bytes) return std::nullopt;
  return RegistryValue{std::move(name), *type, std::move(*bytes)};
}

std::optional<RegistryValue> ParseValue(std::string_view line) {
  const std::optional<std::string> name = Take(line, "@") ? std::string() : TakeQuoted(line);
  if (!name || !Take(line, "=")) return std::nullopt;
  if (Take(line, "hex")) return HexValue(*name, line);
  if (Take(line, "dword:")) {
    const auto number = TakeHex<std::uint32_t>(line);
    if (!number || !line.empty()) return std::nullopt;
    std::string bytes(sizeof *number, '\0');
    std::memcpy(bytes.data(), &*number, sizeof *number);
    return RegistryValue{*name, kRegDword, std::move(bytes)};
  }
  std::optional<std::string> text = TakeQuoted(line);
  if (!text || !line.empty()) return std::nullopt;
  return RegistryValue{*name, kRegSz, *text + '\0'};
}

std::string_view TakeLine(std::string_view& text) {
  std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(std::min(line.size() + 1, text.size()));
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

// A line that breaks off must not swallow the next value or key: only more bytes continue it.
bool GoesOn(std::string_view line, std::string_view rest) {
  return line.ends_with('\\') && (line.starts_with('"') || line.starts_with('@')) &&
         line.find("=hex") != std::string_view::npos &&
         Trimmed(TakeLine(rest)).find_first_of("0123456789abcdefABCDEF") == 0;
}

std::string Hex(std::uint32_t number, std::size_t digits) {
  std::string text(digits, '0');
  for (auto digit = text.rbegin(); digit != text.rend(); ++digit, number >>= 4)
    *digit = "0123456789abcdef"[number & 15];
  return text;
}

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '\\' || c == '"') quoted += '\\';
    quoted += c;
  }
  return quoted + '"';
}

std::string HexText(const RegistryValue& value) {
  std::string text = "hex";
  if (value.type != kBinary) {
    std::array<char, 8> type{};
    text += '(';
    text.append(type.data(), std::to_chars(type.data(), type.data() + type.size(), value.type, 16).ptr);
    text += ')';
  }
  char separator = ':';
  for (const char byte : value.bytes) {
    text += separator;
    text += Hex(static_cast<std::uint8_t>(byte), 2);
    separator = ',';
  }
  return value.bytes.empty() ? text + separator : text;
}

std::string ValueText(const RegistryValue& value) {
  std::uint32_t number = 0;
  if (value.type == kRegDword && value.bytes.size() == sizeof number) {
    std::memcpy(&number, value.bytes.data(), sizeof number);
    return "dword:" + Hex(number, 8);
  }
  if (value.type == kRegSz && value.bytes.ends_with('\0')) {
    const std::string_view text = std::string_view(value.bytes).substr(0, value.bytes.size() - 1);
    if (IsWritableName(text)) return Quoted(text);
  }
  return HexText(value);
}

bool IsAtOrInside(std::string_view path, std::string_view key) {
  return path.size() >= key.size() && EqualIgnoringCase(path.substr(0, key.size()), key) &&
         (path.size() == key.size() || path[key.size()] == '\\');
}

}  // namespace

bool IsWritableName(std::string_view name) {
  return name.find_first_of(std::string_view("\0\r\n", 3)) == std::string_view::npos;
}

std::optional<RegistryText> RegistryText::Parse(std::string_view text) {
  if (Trimmed(TakeLine(text)) != kHeader) return std::nullopt;
  RegistryText registry;
  while (!text.empty()) {
    const std::string_view line = TakeLine(text);
    const std::string_view trimmed = Trimmed(line);
    if (trimmed.starts_with('[')) {
      const bool readable = trimmed.ends_with(']');
      const std::string_view path = readable ? trimmed.substr(1, trimmed.size() - 2) : std::string_view();
      registry.keys_.push_back({std::string(line), std::string(path), {}});
    } else {
      registry.keys_.back().entries.push_back(ParseEntry(line, text));
    }
  }
  return registry;
}

RegistryText::Entry RegistryText::ParseEntry(std::string_view line, std::string_view& rest) {
  std::string text(line);
  std::string joined(Trimmed(line));
  while (GoesOn(joined, rest)) {
    const std::string_view next = TakeLine(rest);
    text.append(kLineEnd).append(next);
    joined.pop_back();
    joined += Trimmed(next);
  }
  return {std::move(text), ParseValue(joined)};
}

RegistryText::Entry RegistryText::MakeEntry(RegistryValue value) {
  std::string text = (value.name.empty() ? "@" : Quoted(value.name)) + "=" + ValueText(value);
  return {std::move(text), std::move(value)};
}

std::string RegistryText::Text() const {
  std::string text(kHeader);
  text += kLineEnd;
  for (const Key& key : keys_) {
    if (!key.heading.empty()) text.append(key.heading).append(kLineEnd);
    for (const Entry& entry : key.entries) text.append(entry.text).append(kLineEnd);
  }
  return text;
}

const RegistryText::Key* RegistryText::FindAtOrInside(std::string_view path) const {
  const auto found = std::ranges::find_if(keys_, [&](const Key& key) { return IsAtOrInside(key.path, path); });
  return found == keys_.end() ? nullptr : &*found;
}

bool RegistryText::HasKey(std::string_view path) const {
  const bool isHive = path.find('\\') == std::string_view::npos;
  return isHive || FindAtOrInside(path) != nullptr;
}

void RegistryText::AddKey(const std::string& path) {
  std::string spelled = path;
  for (std::size_t end = path.rfind('\\'); end != std::string::npos && end > 0; end = path.rfind('\\', end - 1)) {
    const Key* known = FindAtOrInside(std::string_view(path).substr(0, end));
    if (known == nullptr) continue;
    spelled.replace(0, end, known->path, 0, end);
    break;
  }
  keys_.back().entries.emplace_back();  // an empty line
  keys_.push_back({"[" + spelled + "]", spelled, {}});
}

const RegistryValue* RegistryText::FindValue(std::string_view path, std::string_view name) const {
  const RegistryValue* found = nullptr;
  for (const Key& key : keys_) {
    if (!EqualIgnoringCase(key.path, path)) continue;
    for (const Entry& entry : key.entries)
      if (entry.value && EqualIgnoringCase(entry.value->name, name)) found = &*entry.value;
  }
  return found;
}

void RegistryText::PutValue(const std::string& path, RegistryValue value) {
  const auto isKey = [&](const Key& key) { return EqualIgnoringCase(key.path, path); };
  if (std::ranges::none_of(keys_, isKey)) AddKey(path);
  if (const RegistryValue* old = FindValue(path, value.name)) value.name = old->name;
  for (Key& key : keys_) {
    if (!isKey(key)) continue;
    std::erase_if(key.entries, [&](const Entry& e) { return e.value && EqualIgnoringCase(e.value->name, value.name); });
  }
  std::vector<Entry>& entries = std::ranges::find_if(keys_, isKey)->entries;
  auto end = entries.end();
  while (end != entries.begin() && Trimmed(std::prev(end)->text).empty()) --end;
  entries.insert(end, MakeEntry(std::move(value)));
}

}  // namespace sorvex
