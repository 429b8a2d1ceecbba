// SPDX-License-Identifier: MIT
// What each subcommand takes and prints.
#include "kit/command.h"

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <system_error>
#include <utility>

#include "kit/check.h"
#include "kit/report.h"

namespace sorvex {
namespace {

constexpr int kNoFinding = 0;
constexpr int kFindings = 1;
constexpr int kUsage = 2;

// Consoles that know colours set TERM; NO_COLOR asks for none.
bool IsColored() {
  return ::isatty(STDOUT_FILENO) != 0 && std::getenv("TERM") != nullptr && std::getenv("NO_COLOR") == nullptr;
}

// What is wrong with the name of a folder; empty: nothing.
std::string WhyNoFolder(const std::string& name) {
  std::error_code error;
  const std::filesystem::path path(std::u8string(name.begin(), name.end()));
  return std::filesystem::is_directory(path, error) ? "" : name + " is not a folder";
}

int Check(const std::vector<std::string>& folders, bool json) {
  std::vector<CheckedTheme> themes;
  for (const std::string& folder : folders) {
    themes.push_back({folder, CheckTheme(folder)});
    if (json) continue;
    std::cout << AsLines(themes.back(), IsColored()) << std::flush;
    std::cerr << Summary(themes.back());
  }
  if (json) std::cout << AsJson(themes);
  const bool clean = std::ranges::all_of(themes, [](const CheckedTheme& theme) { return theme.findings.empty(); });
  return clean ? kNoFinding : kFindings;
}

}  // namespace

int RunThemeCommand(std::vector<std::string> arguments) {
  CLI::App app("Tools for makers of Sorvex themes.", "sorvex-theme");
  app.allow_windows_style_options(false);  // a slash begins a path
  app.require_subcommand(1);
  std::vector<std::string> folders;
  bool json = false;
  CLI::App* check = app.add_subcommand("check", "Finds all that is wrong with themes");
  check->add_option("THEME", folders, "A theme's folder")->required()->check(WhyNoFolder);
  check->add_flag("--json", json, "Print the findings as JSON");
  check->footer("Exit status: 0 nothing found, 1 findings, 2 wrong usage.");
  try {
    std::ranges::reverse(arguments);  // as CLI11 takes them
    app.parse(std::move(arguments));
    return Check(folders, json);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kNoFinding : kUsage;
  } catch (const std::exception& error) {
    std::cerr << "sorvex-theme: " << error.what() << "\n";
    return kUsage;
  }
}

}  // namespace sorvex
