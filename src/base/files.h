// SPDX-License-Identifier: MIT
// Reading files: paths are UTF-8 (on Linux: the file system's own bytes).
#pragma once

#include <cstdint>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sorvex {

/// `folder` + separator + `name`.
std::string JoinPath(std::string_view folder, std::string_view name);

/// The path of the file `name` in `folder`: as named when that exists, else the one file whose name differs only in
/// case. With none, or with several of which no choice is better than another, the path as named.
std::string FindFile(std::string_view folder, std::string_view name);

/// The names of the folders in `folder` (links to folders and names that begin with a dot included), in the file
/// system's order; empty when it cannot be read. A name that is no valid text on this system is left out.
std::vector<std::string> FoldersIn(std::string_view folder);

/// True when there is anything of that name, or when that cannot be known.
bool PathExists(const std::string& path);

/// The whole file, nullopt when it cannot be opened or read or is longer than `limit` bytes.
std::optional<std::string> ReadFile(const std::string& path, std::uintmax_t limit);
/// The first `count` bytes of the file, all of a shorter one; nullopt when it cannot be opened or read.
std::optional<std::string> ReadStart(const std::string& path, std::uintmax_t count);

/// A plain file whose first bytes tell how many of it are wanted. It is opened once.
class GrowingStart {
 public:
  explicit GrowingStart(const std::string& path);
  /// The file's size in bytes as it was opened; 0 when it cannot be.
  std::uintmax_t Size() const { return size_; }
  /// Reads on until Bytes() are the file's first `count`, or all of a shorter one. False when it cannot be opened or
  /// read.
  bool ReadUpTo(std::uintmax_t count);
  const std::string& Bytes() const& { return bytes_; }
  std::string Bytes() && { return std::move(bytes_); }

 private:
  std::ifstream file_;
  std::uintmax_t size_ = 0;
  std::string bytes_;
};

/// A name for a new file that is to take another's place: hidden, in no theme's list, and nobody can foresee it.
std::string TemporaryName();
/// Removes the files with such names that were left in `folder` over a minute ago, by saves that did not come to their
/// end. Younger ones may be another copy's of the program.
void RemoveLeftTemporaries(std::string_view folder);

}  // namespace sorvex

namespace sorvex::ModFileExist {

/// True when the file can be opened for reading (a folder cannot, nor can a pipe or a device).
bool FileExists(const std::string& path);

}  // namespace sorvex::ModFileExist
