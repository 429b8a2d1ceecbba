// SPDX-License-Identifier: MIT
// Finding and reading the files of themes.
#include "base/files.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <random>
#include <system_error>
#include <utility>

#include "base/limits.h"
#include "base/text.h"

namespace sorvex {
namespace {

namespace fs = std::filesystem;

fs::path ToPath(std::string_view utf8) {
  return {std::u8string(reinterpret_cast<const char8_t*>(utf8.data()), utf8.size())};
}

std::string ToText(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {reinterpret_cast<const char*>(text.data()), text.size()};
}

// The entry's name; nullopt on Windows if it contains unpaired UTF-16 surrogates, which UTF-8 cannot represent.
std::optional<std::string> NameOf(const fs::directory_entry& entry) {
  try {
    return ToText(entry.path().filename());
  } catch (const std::system_error&) {
    return std::nullopt;
  }
}

constexpr std::string_view kTemporaryPrefix = ".sorvex-";

bool IsTemporaryName(std::string_view name) {
  return name.starts_with(kTemporaryPrefix) && name.size() > kTemporaryPrefix.size() &&
         name.substr(kTemporaryPrefix.size()).find_first_not_of("0123456789-") == std::string_view::npos;
}

}  // namespace

std::string JoinPath(std::string_view folder, std::string_view name) { return ToText(ToPath(folder) / ToPath(name)); }

std::string FindFile(std::string_view folder, std::string_view name) {
  const fs::path named = ToPath(folder) / ToPath(name);
  std::error_code error;
  if (fs::exists(named, error)) return ToText(named);
  std::optional<std::string> found;  // the name that differs in case
  int entries = 0;
  for (auto entry = fs::directory_iterator(ToPath(folder), error); !error && entry != fs::directory_iterator();
       entry.increment(error)) {
    if (++entries > kMostEntries) return ToText(named);
    const std::optional<std::string> entryName = NameOf(*entry);
    if (!entryName || !EqualIgnoringCase(*entryName, name)) continue;
    if (found) return ToText(named);
    found = entryName;
  }
  return found ? JoinPath(folder, *found) : ToText(named);
}

std::vector<std::string> FoldersIn(std::string_view folder) {
  std::vector<std::string> names;
  std::error_code error;
  for (auto entry = fs::directory_iterator(ToPath(folder), error); !error && entry != fs::directory_iterator();
       entry.increment(error)) {
    std::error_code unreachable;
    if (!entry->is_directory(unreachable)) continue;
    if (std::optional<std::string> name = NameOf(*entry)) names.push_back(*std::move(name));
  }
  return names;
}

bool PathExists(const std::string& path) {
  std::error_code error;
  const bool exists = fs::exists(fs::status(ToPath(path), error));
  return exists || (error && error != std::errc::no_such_file_or_directory && error != std::errc::not_a_directory);
}

bool IsLink(const std::string& path) {
  std::error_code error;
  return fs::is_symlink(ToPath(path), error);
}

std::optional<std::string> ReadFile(const std::string& path, std::uintmax_t limit) {
  IncrementalReader file(path);
  return file.Size() <= limit && file.ReadUpTo(limit) ? std::optional(std::move(file).Bytes()) : std::nullopt;
}

std::optional<std::string> ReadStart(const std::string& path, std::uintmax_t count) {
  IncrementalReader file(path);
  return file.ReadUpTo(count) ? std::optional(std::move(file).Bytes()) : std::nullopt;
}

IncrementalReader::IncrementalReader(const std::string& path) : file_(ToPath(path)) {}

bool IncrementalReader::ReadUpTo(std::uintmax_t count) {
  if (!file_.IsOpen()) return false;
  const auto wanted = static_cast<std::size_t>(std::min(count, Size()));
  return wanted <= bytes_.size() || Append(wanted - bytes_.size());
}

bool IncrementalReader::ReadNext(std::size_t count) {
  bytes_.clear();
  return file_.IsOpen() && Append(count);
}

bool IncrementalReader::Append(std::size_t count) {
  const std::size_t known = bytes_.size();
  bytes_.resize(known + count);
  const std::optional<std::size_t> read = file_.Read(bytes_.data() + known, count);
  bytes_.resize(known + read.value_or(0));
  return read.has_value();
}

std::string TemporaryName() {
  std::random_device random;
  return std::string(kTemporaryPrefix) + std::to_string(random()) + "-" + std::to_string(random());
}

void RemoveStaleTemporaries(std::string_view folder) {
  const auto youngest = fs::file_time_type::clock::now() - std::chrono::minutes(1);
  std::error_code error;
  for (auto entry = fs::directory_iterator(ToPath(folder), error); !error && entry != fs::directory_iterator();
       entry.increment(error)) {
    const std::optional<std::string> name = NameOf(*entry);
    std::error_code gone;
    if (name && IsTemporaryName(*name) && fs::is_regular_file(entry->symlink_status(gone)) &&
        entry->last_write_time(gone) < youngest && !gone)
      fs::remove(entry->path(), gone);
  }
}

}  // namespace sorvex

namespace sorvex::ModFileExist {

bool FileExists(const std::string& path) { return PlainFile(ToPath(path)).IsOpen(); }

}  // namespace sorvex::ModFileExist
