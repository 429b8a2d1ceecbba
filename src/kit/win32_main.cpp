// SPDX-License-Identifier: MIT
// sorvex-theme on Windows, where the arguments come in UTF-16.
#include <filesystem>
#include <string>
#include <vector>

#include "kit/command.h"

int wmain(int argc, wchar_t** argv) {  // NOLINT(readability-identifier-naming): the system calls it so
  std::vector<std::string> arguments;
  for (int i = 1; i < argc; ++i) {
    const std::u8string utf8 = std::filesystem::path(argv[i]).u8string();
    arguments.emplace_back(utf8.begin(), utf8.end());
  }
  return sorvex::RunThemeCommand(std::move(arguments));
}
