// SPDX-License-Identifier: MIT
// sorvex-theme: what makers of themes run to learn what is wrong with theirs.
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "kit/check.h"
#include "kit/report.h"

namespace {

constexpr int kNoFinding = 0;
constexpr int kFindings = 1;
constexpr int kUsage = 2;

// Consoles that know colours set TERM; NO_COLOR asks for none.
bool IsColored() { return ::isatty(STDOUT_FILENO) != 0 && std::getenv("TERM") && !std::getenv("NO_COLOR"); }

int Check(const std::vector<std::string>& folders, bool json) {
  std::vector<sorvex::CheckedTheme> themes;
  for (const std::string& folder : folders) {
    themes.push_back({folder, sorvex::CheckTheme(folder)});
    if (json) continue;
    std::cout << AsLines(themes.back(), IsColored()) << std::flush;
    std::cerr << Summary(themes.back());
  }
  if (json) std::cout << AsJson(themes);
  const bool clean = std::ranges::all_of(themes, [](const auto& theme) { return theme.findings.empty(); });
  return clean ? kNoFinding : kFindings;
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Tools for makers of Sorvex themes.", "sorvex-theme");
  app.require_subcommand(1);
  std::vector<std::string> folders;
  bool json = false;
  CLI::App* check = app.add_subcommand("check", "Finds all that is wrong with themes");
  check->add_option("THEME", folders, "A theme's folder")->required()->check(CLI::ExistingDirectory);
  check->add_flag("--json", json, "Print the findings as JSON");
  check->footer("Exit status: 0 nothing found, 1 findings, 2 wrong usage.");
  try {
    app.parse(argc, argv);
    return Check(folders, json);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kNoFinding : kUsage;
  } catch (const std::exception& error) {
    std::cerr << "sorvex-theme: " << error.what() << "\n";
    return kUsage;
  }
}
