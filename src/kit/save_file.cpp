// SPDX-License-Identifier: MIT
// Plain files in plain folders.
#include "kit/save_file.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <vector>

#include "base/files.h"
#include "base/runtime_error.h"

namespace sorvex {

namespace fs = std::filesystem;

fs::path PathOf(const std::string& utf8) { return {std::u8string(utf8.begin(), utf8.end())}; }

namespace {

[[noreturn]] void Fail(const std::string& path, const std::error_code& why) {
  const RuntimeError failure = PathAccessError();
  throw RuntimeError(failure.Number(), path + ": " + (why ? why.message() : failure.Description()));
}

void MakeFolder(const std::string& folder) {
  std::error_code error;
  fs::create_directories(PathOf(folder), error);
  if (error) Fail(folder, error);
}

// A failure is told of the file `named`.
void Write(const std::string& path, const std::string& named, std::string_view bytes) {
  errno = 0;
  std::ofstream out(PathOf(path), std::ios::binary);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  out.close();
  if (!out) Fail(named, {errno, std::generic_category()});
}

// Files beside those that they are to replace. On destruction those that did not come to it are removed.
class Staged {
 public:
  explicit Staged(const std::string& folder) : folder_(folder) {}
  ~Staged() {
    std::error_code ignored;
    for (const auto& [temporary, final] : files_) fs::remove(PathOf(temporary), ignored);
  }
  Staged(const Staged&) = delete;
  Staged& operator=(const Staged&) = delete;

  void Add(const std::string& name, std::string_view bytes) {
    files_.emplace_back(JoinPath(folder_, TemporaryName()), JoinPath(folder_, name));
    Write(files_.back().first, files_.back().second, bytes);
  }
  void Replace() {
    std::error_code error;
    for (const auto& [temporary, final] : files_) {
      fs::rename(PathOf(temporary), PathOf(final), error);
      if (error) Fail(final, error);
    }
  }

 private:
  std::string folder_;
  std::vector<std::pair<std::string, std::string>> files_;
};

}  // namespace

void SaveFile(const std::string& path, std::string_view bytes) {
  const std::u8string folder = PathOf(path).parent_path().u8string();
  if (!folder.empty()) MakeFolder({folder.begin(), folder.end()});
  Write(path, path, bytes);
}

void SaveFiles(const std::string& folder, const std::map<std::string, std::string>& files) {
  MakeFolder(folder);
  Staged staged(folder);
  for (const auto& [name, bytes] : files) staged.Add(name, bytes);
  staged.Replace();
}

void RemoveFile(const std::string& path) {
  std::error_code error;
  fs::remove(PathOf(path), error);
  if (error) Fail(path, error);
}

}  // namespace sorvex
