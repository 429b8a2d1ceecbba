// SPDX-License-Identifier: MIT
// Reading files. Paths are UTF-8 (on Linux: the file system's bytes, unconverted).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/plain_file.h"

namespace sorvex {

/// `folder` + separator + `name`.
std::string JoinPath(std::string_view folder, std::string_view name);

/// The path of the file `name` in `folder`: with `name` as given if that exists, else the only file whose name differs
/// just in case. If there is no such file, or more than one, or the folder has over kMostEntries, `name` as given.
std::string FindFile(std::string_view folder, std::string_view name);

/// The names of the folders in `folder` (including links to folders and names that begin with a dot), in the file
/// system's order; empty if it cannot be read. Names that are not valid Unicode on Windows are left out.
std::vector<std::string> FoldersIn(std::string_view folder);

/// True if the path exists (file, folder or anything else) or if that cannot be determined.
bool PathExists(const std::string& path);
/// True if the path itself is a symbolic link, wherever it leads.
bool IsLink(const std::string& path);

/// The content of a regular file; nullopt if it cannot be opened or read or has more than `limit` bytes.
std::optional<std::string> ReadFile(const std::string& path, std::uintmax_t limit);
/// The first `count` bytes of a regular file, or all of a shorter one; nullopt if it cannot be opened or read.
std::optional<std::string> ReadStart(const std::string& path, std::uintmax_t count);

/// Reads a regular file in steps, for formats whose header says how much of the file is needed. Opens the file once.
class IncrementalReader {
 public:
  explicit IncrementalReader(const std::string& path);
  /// The file's size in bytes when it was opened; 0 if it could not be opened.
  std::uintmax_t Size() const { return file_.Size(); }
  /// Reads until Bytes() holds the file's first `count` bytes, or all of a shorter file. False if it cannot be opened
  /// or read.
  bool ReadUpTo(std::uintmax_t count);
  /// Reads the next `count` bytes, or what is left, in place of those before: Bytes() holds only these.
  bool ReadNext(std::size_t count);
  const std::string& Bytes() const& { return bytes_; }
  std::string Bytes() && { return std::move(bytes_); }

 private:
  bool Append(std::size_t count);

  PlainFile file_;
  std::string bytes_;
};

/// A name for a temporary file that will replace another file: hidden, unpredictable, and not used by any theme.
std::string TemporaryName();
/// Removes temporary files older than a minute from `folder`, which interrupted saves left behind. Newer ones may
/// belong to another running copy of the program.
void RemoveStaleTemporaries(std::string_view folder);

}  // namespace sorvex

namespace sorvex::ModFileExist {

/// True if `path` is a regular file that can be opened for reading.
bool FileExists(const std::string& path);

}  // namespace sorvex::ModFileExist
