// SPDX-License-Identifier: MIT
// Opening and reading a regular file. Each system implements it in its folder of platform/.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>

namespace sorvex {

/// A file open for reading. Theme folders are untrusted: whatever `path` names, opening and reading it do not block.
class PlainFile {
 public:
  /// Not open unless `path` is a regular file, or a link to one, that may be read. What it is is asked of the open
  /// file, because another program may replace it at any time.
  explicit PlainFile(const std::filesystem::path& path);
  PlainFile(const PlainFile&) = delete;
  PlainFile& operator=(const PlainFile&) = delete;
  ~PlainFile();

  bool IsOpen() const { return handle_ != kNone; }
  /// The file's size in bytes when it was opened; 0 if it is not open.
  std::uintmax_t Size() const { return size_; }
  /// Reads the next `count` bytes and returns how many there were, fewer only at the end; nullopt on an error.
  std::optional<std::size_t> Read(char* to, std::size_t count) const;

 private:
  using Handle = std::intptr_t;  // of the system: a descriptor or a HANDLE
  static constexpr Handle kNone = -1;

  Handle handle_ = kNone;
  std::uintmax_t size_ = 0;
};

}  // namespace sorvex
