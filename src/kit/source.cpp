// SPDX-License-Identifier: MIT
// Walking the document's tables. Every key is asked for by name; one that nobody asked for is a mistake in spelling.
#include "kit/source.h"

#include <toml++/toml.h>

#include <algorithm>
#include <filesystem>
#include <limits>
#include <system_error>
#include <utility>

#include "base/files.h"
#include "base/limits.h"
#include "base/numbers.h"
#include "game/mod_variables.h"

namespace sorvex {
namespace {

int LineOf(const toml::node& node) { return static_cast<int>(node.source().begin.line); }

// Reports what is wrong with one source.
class Complaints {
 public:
  Complaints(std::string file, Findings& findings) : file_(std::move(file)), findings_(findings) {}
  void Add(std::string_view code, int line, const std::string& message) const {
    findings_.push_back({Severity::Error, code, file_, line, std::nullopt, message});
  }

 private:
  std::string file_;
  Findings& findings_;
};

bool IsControl(char c) { return (c >= 0 && c < 0x20) || c == 0x7F; }

// Why a path is none that a source may have; empty: nothing.
std::string WhyNoPath(const std::string& path) {
  if (path.empty()) return "is no name";
  if (path.find('\\') != path.npos) return "has a backslash; between folders stands /";
  if (path.front() == '/' || path.substr(1, 1) == ":") return "is not relative to the folder of this file";
  if (std::ranges::any_of(path, IsControl)) return "has a control character";
  return "";
}

// One table: hands out the values of its keys, and reports those that are missing, of a wrong kind or unknown.
class Table {
 public:
  Table(const toml::table& table, std::string name, const Complaints& complaints)
      : table_(table), name_(std::move(name)), complaints_(complaints) {}

  int Line() const { return name_.empty() ? 0 : LineOf(table_); }
  void Complain(std::string_view code, int line, const std::string& message) const {
    complaints_.Add(code, line, message);
  }

  const toml::node* Find(const char* key) {
    known_.emplace_back(key);
    return table_.get(key);
  }
  const toml::node* Need(const char* key) {
    const toml::node* node = Find(key);
    if (node == nullptr) Complain("source-key", Line(), Prefix() + "the key '" + key + "' is missing");
    return node;
  }

  std::string Text(const char* key, const toml::node* node) const {
    if (node == nullptr) return "";
    if (const auto text = node->value_exact<std::string>()) {
      const auto isUnknown = [](char c) { return IsControl(c) && c != '\t' && c != '\n' && c != '\r'; };
      if (std::ranges::any_of(*text, isUnknown))
        Complain("source-value", LineOf(*node), Named(key) + " has a control character");
      return *text;
    }
    Complain("source-value", LineOf(*node), Named(key) + " must be a text in double quotes");
    return "";
  }
  NamedFile File(const char* key, const toml::node* node) const {
    if (node == nullptr) return {};
    NamedFile file{Text(key, node), LineOf(*node)};
    if (!node->is_string()) return {};
    const std::string why = WhyNoPath(file.path);
    if (why.empty()) return file;
    Complain("source-value", file.line, "'" + file.path + "' " + why);
    return {"", file.line};
  }
  std::optional<std::int64_t> Number(const char* key, const toml::node& node, std::int64_t least,
                                     std::int64_t most) const {
    const auto number = node.value_exact<std::int64_t>();
    if (number && *number >= least && *number <= most) return number;
    Complain(
        "source-value", LineOf(node),
        Named(key) + ": a whole number from " + std::to_string(least) + " to " + std::to_string(most) + " is expected");
    return std::nullopt;
  }
  std::optional<Place> PlaceOf(const char* key, const toml::node* node) const {
    if (node == nullptr) return std::nullopt;
    const toml::array* pair = node->as_array();
    if (pair == nullptr || pair->size() != 2) {
      Complain("source-value", LineOf(*node), Named(key) + " must be a place: [x, y]");
      return std::nullopt;
    }
    using Limits = std::numeric_limits<Integer>;
    const auto x = Number(key, *pair->get(0), Limits::min(), Limits::max());
    const auto y = Number(key, *pair->get(1), Limits::min(), Limits::max());
    return x && y ? std::optional(Place{static_cast<int>(*x), static_cast<int>(*y)}) : std::nullopt;
  }

  // A table inside this one.
  std::optional<Table> Inner(const char* key, const toml::node* node) const {
    const std::string name = "[" + std::string(key) + "]";
    if (node == nullptr) return std::nullopt;
    if (const toml::table* table = node->as_table()) return Table(*table, name, complaints_);
    Complain("source-value", LineOf(*node), Named(key) + " must be a table: " + name);
    return std::nullopt;
  }
  std::vector<Table> List(const char* key, const toml::node* node) const {
    const std::string name = "[[" + std::string(key) + "]]";
    std::vector<Table> tables;
    if (node == nullptr) return tables;
    const toml::array* array = node->as_array();
    if (array == nullptr) Complain("source-value", LineOf(*node), Named(key) + " must be a list of tables: " + name);
    for (std::size_t i = 0; array != nullptr && i < array->size(); ++i) {
      const toml::node& element = *array->get(i);
      if (const toml::table* table = element.as_table())
        tables.emplace_back(*table, name, complaints_);
      else
        Complain("source-value", LineOf(element), Named(key) + " must be a list of tables: " + name);
    }
    return tables;
  }

  // To be called when every known key has been asked for.
  void ComplainOfOthers() const {
    for (const auto& [key, node] : table_)
      if (std::ranges::find(known_, key.str()) == known_.end()) ComplainOfKey(key);
  }

 private:
  void ComplainOfKey(const toml::key& key) const {
    std::string name(key.str());
    std::ranges::replace_if(name, IsControl, ' ');
    std::string message = Prefix() + "unknown key '" + name + "'; known are ";
    for (const std::string& known : known_) message += (&known == known_.data() ? "" : ", ") + known;
    Complain("source-key", static_cast<int>(key.source().begin.line), message);
  }
  std::string Prefix() const { return name_.empty() ? "" : name_ + ": "; }
  static std::string Named(const char* key) { return "'" + std::string(key) + "'"; }

  const toml::table& table_;
  std::string name_;
  const Complaints& complaints_;
  std::vector<std::string> known_;
};

// What an item takes that names none.
struct Defaults {
  NamedFile picture;
  NamedFile container;
};

Defaults ReadDefaults(std::optional<Table> table) {
  Defaults defaults;
  if (!table) return defaults;
  defaults.picture = table->File("picture", table->Find("picture"));
  defaults.container = table->File("container", table->Find("container"));
  table->ComplainOfOthers();
  return defaults;
}

NamedFile FileOr(Table& table, const char* key, const NamedFile& fallback) {
  const bool isThere = fallback.line > 0;
  const toml::node* node = isThere ? table.Find(key) : table.Need(key);
  return node == nullptr ? fallback : table.File(key, node);
}

SourceItem ReadItem(Table& table, const Defaults& defaults) {
  constexpr char inContainer[] = "in its container";
  SourceItem item{
      FileOr(table, "picture", defaults.picture), FileOr(table, "container", defaults.container), {}, {}, table.Line()};
  const toml::node* containerAt = table.Need("container_at");
  item.containerAt = table.PlaceOf("container_at", containerAt).value_or(Place{});
  if (containerAt != nullptr) item.line = LineOf(*containerAt);
  const toml::node* at = table.Find("at");
  if (at != nullptr && at->is_string()) {
    if (at->value_exact<std::string>() != inContainer)
      table.Complain("source-value", LineOf(*at),
                     "'at' must be a place, [x, y], or \"" + std::string(inContainer) + "\"");
  } else {
    item.at = table.PlaceOf("at", at);
  }
  table.ComplainOfOthers();
  return item;
}

void ReadTarget(std::optional<Table> table, ThemeSource& source) {
  if (!table) return;
  source.target = table->File("picture", table->Need("picture"));
  source.targetAt = table->PlaceOf("at", table->Need("at")).value_or(Place{});
  table->ComplainOfOthers();
}

void ReadSounds(std::optional<Table> table, ThemeSource& source) {
  if (!table) return;
  for (std::size_t i = 0; i < kSounds.size(); ++i)
    if (const toml::node* node = table->Find(kSounds[i].key)) source.sounds[i] = table->File(kSounds[i].key, node);
  table->ComplainOfOthers();
}

void ReadDocument(const toml::table& document, const Complaints& complaints, ThemeSource& source) {
  Table root(document, "", complaints);
  source.description = root.Text("description", root.Find("description"));
  source.date = root.Text("date", root.Find("date"));
  source.background = root.File("background", root.Need("background"));
  if (const toml::node* threshold = root.Find("threshold"))
    source.threshold = static_cast<int>(root.Number("threshold", *threshold, 1, 255).value_or(source.threshold));
  ReadTarget(root.Inner("target", root.Need("target")), source);
  ReadSounds(root.Inner("sounds", root.Find("sounds")), source);
  const Defaults defaults = ReadDefaults(root.Inner("defaults", root.Find("defaults")));
  const toml::node* list = root.Need("item");
  std::vector<Table> items = root.List("item", list);
  for (Table& item : items) source.items.push_back(ReadItem(item, defaults));
  if (list != nullptr && list->is_array() && items.empty())
    root.Complain("source-value", LineOf(*list), "without an item there is nothing to play");
  if (items.size() > kMostItems)
    root.Complain("source-value", items[kMostItems].Line(),
                  "a theme has at most " + std::to_string(kMostItems) + " items");
  root.ComplainOfOthers();
}

}  // namespace

ThemeSource ReadSource(const std::string& path, Findings& findings) {
  ThemeSource source;
  std::error_code error;
  const std::filesystem::path named(std::u8string(path.begin(), path.end()));
  const auto text = [](const std::filesystem::path& part) {
    const std::u8string utf8 = part.u8string();
    return std::string(utf8.begin(), utf8.end());
  };
  const bool isFile = std::filesystem::is_regular_file(named, error);
  source.folder = isFile ? text(named.parent_path()) : path;
  source.file = isFile ? text(named.filename()) : kSourceFile;
  const Complaints complaints(source.file, findings);
  const std::optional<std::string> bytes = ReadFile(JoinPath(source.folder, source.file), kLongestText);
  if (!bytes) {
    complaints.Add("source-syntax", 0,
                   "not found, not readable or longer than " + std::to_string(kLongestText >> 10) + " KiB");
    return source;
  }
  const toml::parse_result parsed = toml::parse(*bytes);
  if (!parsed) {
    const auto& fault = parsed.error();
    complaints.Add("source-syntax", static_cast<int>(fault.source().begin.line), std::string(fault.description()));
    return source;
  }
  ReadDocument(parsed.table(), complaints, source);
  std::ranges::stable_sort(findings, {}, &Finding::line);
  return source;
}

}  // namespace sorvex
