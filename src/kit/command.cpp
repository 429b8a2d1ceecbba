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

#include "base/files.h"
#include "kit/check.h"
#include "kit/gallery.h"
#include "kit/make.h"
#include "kit/preview.h"
#include "kit/report.h"
#include "kit/save_file.h"
#include "kit/source.h"
#include "kit/starter.h"
#include "platform/encode_png.h"
#include "platform/version.h"

namespace sorvex {
namespace {

constexpr int kNoFinding = 0;
constexpr int kFindings = 1;
constexpr int kUsage = 2;

// Consoles that know colors set TERM; NO_COLOR asks for none.
bool IsColored() {
  return ::isatty(STDOUT_FILENO) != 0 && std::getenv("TERM") != nullptr && std::getenv("NO_COLOR") == nullptr;
}

// What is wrong with the name of a folder; empty: nothing.
std::string WhyNoFolder(const std::string& name) {
  std::error_code error;
  const std::filesystem::path path(std::u8string(name.begin(), name.end()));
  return std::filesystem::is_directory(path, error) ? "" : name + " is not a folder";
}

std::string WhyNoName(const std::string& name) { return name.empty() ? "an empty name" : ""; }

// Shows on a terminal how far the proof is, on a line that goes again.
Progress ShowProgress(const std::string& folder) {
  if (::isatty(STDERR_FILENO) == 0) return nullptr;
  return [folder](int done, int all) {
    constexpr int width = 20;
    const auto filled = static_cast<std::size_t>(width * done / all);
    std::string bar = std::string(filled, '#') + std::string(width - filled, '.');
    std::cerr << "\r" << folder << " [" << bar << "]" << std::flush;
    if (done + 1 == all) std::cerr << "\r" << std::string(folder.size() + bar.size() + 3, ' ') << "\r" << std::flush;
  };
}

void Print(const CheckedTheme& theme) {
  std::cout << AsLines(theme, IsColored()) << std::flush;
  std::cerr << Summary(theme);
}

int Check(const std::vector<std::string>& folders, bool json) {
  std::vector<CheckedTheme> themes;
  for (const std::string& folder : folders) {
    themes.push_back(CheckTheme(folder, ShowProgress(folder)));
    if (!json) Print(themes.back());
  }
  if (json) std::cout << AsJson(themes);
  const bool clean = std::ranges::all_of(themes, [](const CheckedTheme& theme) { return theme.findings.empty(); });
  return clean ? kNoFinding : kFindings;
}

std::vector<ItemProof> ProveAll(const Theme& theme) {
  std::vector<ItemProof> proofs;
  for (Long item = 0; item <= theme.items.LastItem; ++item) proofs.push_back(ProveItem(theme, item));
  return proofs;
}

struct PreviewOptions {
  std::vector<std::string> folders;
  std::string picture;  // the file to write, empty: none
  bool paths = false;
  std::string gallery;  // the folder to write, empty: none
};

// The last part of a folder's path, also of one that ends with a separator.
std::string NameOf(const std::string& folder) {
  std::error_code error;
  const auto path = std::filesystem::weakly_canonical(std::u8string(folder.begin(), folder.end()), error);
  const std::u8string name = path.filename().u8string();
  return name.empty() ? folder : std::string(name.begin(), name.end());
}

int Preview(const PreviewOptions& options) {
  std::vector<Theme> themes;
  for (const std::string& folder : options.folders) {
    try {
      themes.push_back(ReadTheme(folder));
    } catch (const ThemeError& error) {
      std::cerr << folder << ": " << error.what() << "\n";
    }
  }
  if (themes.size() < options.folders.size()) return kFindings;
  if (!options.picture.empty())
    SaveFile(options.picture, EncodePng(options.paths ? DrawPreview(themes.front(), ProveAll(themes.front()))
                                                      : DrawPreview(themes.front())));
  if (options.gallery.empty()) return kNoFinding;
  std::vector<GalleryTheme> shown;
  for (std::size_t i = 0; i < themes.size(); ++i)
    shown.push_back({NameOf(options.folders[i]), &themes[i], ProveAll(themes[i])});
  WriteGallery(options.gallery, shown);
  return kNoFinding;
}

int Make(const std::string& sourcePath, const std::string& folder) {
  Findings findings;
  const ThemeSource source = ReadSource(sourcePath, findings);
  if (const std::string why = WhyNotInto(folder, source); !why.empty()) {
    std::cerr << why << "\n";
    return kUsage;
  }
  const MadeTheme theme = MakeTheme(source, findings);
  if (!findings.empty()) {
    Print({source.folder, findings, {}});
    return kUsage;
  }
  WriteTheme(folder, theme);
  for (std::size_t n = 0; n < theme.places.size(); ++n)
    if (const auto& place = theme.places[n])
      std::cout << "item " << n << ": at " << Said(*place) << ", in its container\n";
  return Check({folder}, false);
}

int MakeNew(const std::string& folder) {
  if (PathExists(folder)) {
    std::cerr << folder << " is there already; name a new folder\n";
    return kUsage;
  }
  for (const auto& [name, bytes] : StarterSource()) SaveFile(JoinPath(folder, name), bytes);
  std::cout << folder << ": theme.toml, pictures and sounds; make a theme of them: sorvex-theme make " << folder
            << " -o THEME\n";
  return kNoFinding;
}

// What a command line sets.
struct Options {
  std::vector<std::string> folders;
  bool json = false;
  PreviewOptions preview;
  std::string source;
  std::string theme;
  std::string name;
};

std::string Version() {
  std::string text = "sorvex-theme " + std::to_string(version::kMajor);
  for (const int part : {version::kMinor, version::kRevision}) text += '.' + std::to_string(part);
  return text;
}

CLI::App* AddCheck(CLI::App& app, Options& options) {
  CLI::App* check = app.add_subcommand("check", "Finds all that is wrong with themes");
  check->add_option("THEME", options.folders, "A theme's folder")->required()->check(WhyNoFolder);
  check->add_flag("--json", options.json, "Print the findings as JSON");
  check->footer("Exit status: 0 nothing found, 1 findings, 2 wrong usage.");
  return check;
}

void AddPreview(CLI::App& app, PreviewOptions& options) {
  CLI::App* draw = app.add_subcommand("preview", "Draws themes as the game starts them");
  draw->add_option("THEME", options.folders, "A theme's folder")->required()->check(WhyNoFolder);
  CLI::Option* picture =
      draw->add_option("-o,--output", options.picture, "Write one theme's field to this PNG file")->check(WhyNoName);
  draw->add_flag("--paths", options.paths, "Draw the ways to the target and their tightest places")->needs(picture);
  CLI::Option* gallery =
      draw->add_option("--web", options.gallery, "Write a page with all the themes into this folder")->check(WhyNoName);
  draw->callback([=, &options] {
    if (picture->empty() && gallery->empty()) throw CLI::RequiredError("Either -o or --web");
    if (!picture->empty() && !gallery->empty()) throw CLI::ExcludesError("-o", "--web");
    if (!picture->empty() && options.folders.size() != 1) throw CLI::RequiredError("With -o exactly one THEME");
  });
}

CLI::App* AddMake(CLI::App& app, Options& options) {
  CLI::App* make = app.add_subcommand("make", "Makes a theme from pictures with transparency, and checks it");
  make->add_option("SOURCE", options.source, "A folder with a theme.toml, or that file")->required()->check(WhyNoName);
  make->add_option("-o,--output", options.theme, "The theme's folder")
      ->required()
      ->check(WhyNoName)
      ->type_name("THEME");
  make->footer("Exit status: 0 nothing found, 1 findings, 2 unusable source or wrong usage.");
  return make;
}

CLI::App* AddNew(CLI::App& app, Options& options) {
  CLI::App* start = app.add_subcommand("new", "Makes a small source to start a theme from");
  start->add_option("NAME", options.name, "The new folder")->required()->check(WhyNoName);
  return start;
}

}  // namespace

int RunThemeCommand(std::vector<std::string> arguments) {
  CLI::App app("Tools for makers of Sorvex themes.", "sorvex-theme");
  app.allow_windows_style_options(false);  // a slash begins a path
  app.set_version_flag("--version", Version(), "Print the version and exit");
  app.require_subcommand(1);
  Options options;
  const CLI::App* start = AddNew(app, options);
  const CLI::App* make = AddMake(app, options);
  const CLI::App* check = AddCheck(app, options);
  AddPreview(app, options.preview);
  try {
    std::ranges::reverse(arguments);  // as CLI11 takes them
    app.parse(std::move(arguments));
    if (start->parsed()) return MakeNew(options.name);
    if (make->parsed()) return Make(options.source, options.theme);
    return check->parsed() ? Check(options.folders, options.json) : Preview(options.preview);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kNoFinding : kUsage;
  } catch (const std::exception& error) {
    std::cerr << "sorvex-theme: " << error.what() << "\n";
    return kUsage;
  }
}

}  // namespace sorvex
