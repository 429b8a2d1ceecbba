// SPDX-License-Identifier: MIT
// Making and removing a test's folder, writing and reading its files.
#include "support/temp_folder.h"

#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

namespace sorvex {

namespace fs = std::filesystem;

TempFolder::TempFolder(const fs::path& parent) {
  std::random_device random;
  do {
    path_ = parent / ("sorvex-test-" + std::to_string(random()));
  } while (!fs::create_directory(path_));
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

void WriteFile(const fs::path& path, std::string_view bytes) {
  fs::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary);
  file << bytes;
  if (!file.flush()) throw std::runtime_error("cannot write " + path.string());
}

std::string ReadWholeFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path.string());
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace sorvex
