// SPDX-License-Identifier: MIT
// Plain files in plain folders.
#include "kit/save_file.h"

#include <filesystem>
#include <fstream>
#include <system_error>

#include "base/runtime_error.h"

namespace sorvex {

namespace {

[[noreturn]] void Fail(const std::string& path) {
  const RuntimeError failure = PathAccessError();
  throw RuntimeError(failure.Number(), path + ": " + failure.Description());
}

}  // namespace

void SaveFile(const std::string& path, std::string_view bytes) {
  const std::filesystem::path file(std::u8string(path.begin(), path.end()));
  std::error_code error;
  if (file.has_parent_path()) std::filesystem::create_directories(file.parent_path(), error);
  std::ofstream out(file, std::ios::binary);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  out.close();
  if (!out) Fail(path);
}

void RemoveFile(const std::string& path) {
  std::error_code error;
  std::filesystem::remove(std::u8string(path.begin(), path.end()), error);
  if (error) Fail(path);
}

}  // namespace sorvex
