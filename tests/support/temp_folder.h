// SPDX-License-Identifier: MIT
// A folder of a test's own, removed with everything in it.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace sorvex {

class TempFolder {
 public:
  explicit TempFolder(const std::filesystem::path& parent = std::filesystem::temp_directory_path());
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

/// Writes the file, making the folders above it.
void WriteFile(const std::filesystem::path& path, std::string_view bytes);
std::string ReadWholeFile(const std::filesystem::path& path);

}  // namespace sorvex
