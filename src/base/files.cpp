// SPDX-License-Identifier: MIT
// Finding and reading the files of themes.
#include "base/files.h"

#include <filesystem>
#include <fstream>

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

// Opening a pipe would wait for its writer, and a folder opens on some systems: only plain files count.
std::ifstream OpenPlainFile(const std::string& name) {
  const fs::path path = ToPath(name);
  std::error_code error;
  if (!fs::is_regular_file(path, error)) return {};
  return std::ifstream(path, std::ios::binary);
}

}  // namespace

std::string JoinPath(std::string_view folder, std::string_view name) { return ToText(ToPath(folder) / ToPath(name)); }

std::string FindFile(std::string_view folder, std::string_view name) {
  const fs::path named = ToPath(folder) / ToPath(name);
  std::error_code error;
  if (fs::exists(named, error)) return ToText(named);
  std::optional<std::string> found;
  for (auto entry = fs::directory_iterator(ToPath(folder), error); !error && entry != fs::directory_iterator();
       entry.increment(error)) {
    if (!EqualIgnoringCase(ToText(entry->path().filename()), name)) continue;
    if (found) return ToText(named);
    found = ToText(entry->path());
  }
  return found.value_or(ToText(named));
}

std::vector<std::string> FoldersIn(std::string_view folder) {
  std::vector<std::string> names;
  std::error_code error;
  for (auto entry = fs::directory_iterator(ToPath(folder), error); !error && entry != fs::directory_iterator();
       entry.increment(error)) {
    std::error_code unreachable;
    if (entry->is_directory(unreachable)) names.push_back(ToText(entry->path().filename()));
  }
  return names;
}

std::optional<std::string> ReadFile(const std::string& path, std::uintmax_t limit) {
  std::ifstream file = OpenPlainFile(path);
  if (!file.is_open()) return std::nullopt;
  const auto size = static_cast<std::streamoff>(file.seekg(0, std::ios::end).tellg());
  if (size < 0 || static_cast<std::uintmax_t>(size) > limit) return std::nullopt;
  file.seekg(0);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (file.bad()) return std::nullopt;
  bytes.resize(static_cast<std::size_t>(file.gcount()));
  return bytes;
}

}  // namespace sorvex

namespace sorvex::ModFileExist {

bool FileExists(const std::string& path) { return OpenPlainFile(path).is_open(); }

}  // namespace sorvex::ModFileExist
