// SPDX-License-Identifier: MIT
// Themes whose files are none, or not what they say, or change while they are read: a file that cannot be used is named
// in a box, and nothing waits for it.
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <chrono>
#include <csignal>
#include <iostream>
#include <thread>

#include "base/files.h"
#include "base/limits.h"
#include "posix/child.h"
#include "support/random_surfaces.h"
#include "support/story.h"
#include "themes/load_theme.h"

namespace sorvex {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr auto kAtOnce = 2s;  // half a second, and what a busy machine and sanitizers add

const std::string kMissing = "There is an important file missing. Can not load theme Hostile";
const std::string kNoTable = "Highscore file not found";
const std::string kNoBox;

// With how the box about each kind of file begins.
struct Role {
  std::string file;
  std::string none = {};
  std::string empty = {};
  std::string cut = {};
  std::string liar = {};
};

std::vector<Role> Roles() {
  std::vector<Role> roles{{"Theme.ini", kMissing, kNoBox, "Hostile: Theme.ini", "Hostile: Theme.ini"},
                          {"Theme2.ini", kMissing, "Hostile: Theme2.ini", "Hostile: Theme2.ini", "Hostile: Theme2.ini"},
                          {"ThemeDetails.ini", kNoBox, kNoBox, kNoBox, "Hostile: ThemeDetails.ini"},
                          {"HighScores.ini", kNoTable, kNoBox, kNoBox, kNoTable}};
  for (const char* picture : {"bg", "pS", "pM", "ss1", "sm1", "cs1", "cm1"}) {
    const std::string file = picture + std::string(".bmp");
    roles.push_back({file, "Hostile: " + file, "Hostile: " + file, "Hostile: " + file, "Hostile: " + file});
  }
  for (const char* sound : {"Pickup.wav", "LetGo.wav", "HitTube.wav", "PutInCont.wav"})
    roles.push_back({.file = sound});
  return roles;
}

struct Kind {
  const char* what;
  std::function<void(const fs::path& file, const std::string& honest)> make;
  std::string Role::*box;
};

void MakeSocket(const fs::path& file) {
  sockaddr_un address{AF_UNIX, {}};
  file.string().copy(address.sun_path, sizeof address.sun_path - 1);
  const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
  EXPECT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  ::close(socket);
}

Kind LinkTo(const char* target) {
  return {target, [=](const fs::path& file, const std::string&) { fs::create_symlink(target, file); }, &Role::none};
}

const std::string kLies = "BM" + std::string(kLongestText, '\xFF');

std::vector<Kind> Kinds() {
  return {LinkTo("/dev/zero"),
          LinkTo("/dev/full"),
          LinkTo("/dev/tty"),
          LinkTo("/dev/null"),
          LinkTo("/"),
          LinkTo("."),
          LinkTo("dangling"),
          {"loop", [](const auto& file, const auto&) { fs::create_symlink(file.filename(), file); }, &Role::none},
          {"pipe", [](const auto& file, const auto&) { EXPECT_EQ(::mkfifo(file.c_str(), 0666), 0); }, &Role::none},
          {"socket", [](const auto& file, const auto&) { MakeSocket(file); }, &Role::none},
          {"folder", [](const auto& file, const auto&) { fs::create_directory(file); }, &Role::none},
          {"empty", [](const auto& file, const auto&) { WriteFile(file, ""); }, &Role::empty},
          {"cut", [](const auto& file, const auto& honest) { WriteFile(file, honest.substr(0, honest.size() / 3)); },
           &Role::cut},
          {"liar", [](const auto& file, const auto&) { WriteFile(file, kLies); }, &Role::liar}};
}

void ExpectReportedAtOnce(const Role& role, const Kind& kind) {
  SCOPED_TRACE(role.file + ": " + kind.what);
  Story story({CupTheme(2), CupTheme(2, "Hostile")});
  const fs::path file = story.ThemeFile(role.file, "Hostile");
  const std::string honest = fs::exists(file) ? ReadWholeFile(file) : "";
  fs::remove(file);
  kind.make(file, honest);
  const std::string& box = role.*kind.box;
  story.state.ThemeName = "Hostile";
  const auto begin = Clock::now();
  LoadTheme(story.program.game, "Hostile");
  EXPECT_LT(Clock::now() - begin, kAtOnce);
  EXPECT_EQ(story.desktop.Boxes.empty() ? "" : story.desktop.Boxes[0].text.substr(0, box.size()), box);
  EXPECT_EQ(story.desktop.Boxes.size(), box.empty() ? 0U : 1U);
  EXPECT_EQ(story.state.ThemeName, box.empty() || box == kNoTable ? "Hostile" : "Theme1");
  story.Start().Move(30, 60).Grab(30, 60).Frames(3).Run();
  EXPECT_GT(story.desktop.FramesShown, 0);
  if (role.file.ends_with(".wav")) {
    EXPECT_EQ(ReadFile(file.string(), kLargestSound).has_value(), kind.box != &Role::none);
  }
}

TEST(AHostileFile, IsNamedAtOnceInEveryRole) {
  for (const Role& role : Roles())
    for (const Kind& kind : Kinds()) ExpectReportedAtOnce(role, kind);
}

// Puts something else in a file's place, or changes the file, and puts it right again, until it is killed.
int ChangeForEver(const fs::path& folder, Random& random) {
  std::vector<std::pair<fs::path, std::string>> files;
  for (const auto& entry : fs::directory_iterator(folder))
    files.emplace_back(entry.path(), ReadWholeFile(entry.path()));
  const fs::path other = folder / "other";
  for (;;) {
    const auto& [file, honest] = files[static_cast<std::size_t>(random.Number(0, static_cast<int>(files.size()) - 1))];
    const int change = random.Number(0, 4);
    if (change == 0) fs::remove(file);
    if (change == 1) fs::resize_file(file, static_cast<std::uintmax_t>(random.Number(0, 1 << 20)));
    if (change == 2) ::mkfifo(other.c_str(), 0666);
    if (change == 3) fs::create_symlink("/dev/zero", other);
    if (change == 4) WriteFile(other, kLies);
    if (change >= 2) fs::rename(other, file);
    std::this_thread::sleep_for(std::chrono::microseconds(random.Number(0, 500)));
    WriteFile(other, honest);
    fs::rename(other, file);
  }
}

TEST(AFileThatChanges, WhileItIsReadHarmsNothing) {
  Random random;
  SCOPED_TRACE(testing::Message() << "SORVEX_SEED=" << random.Seed);
  Story story({CupTheme(2), CupTheme(2, "Hostile")});
  const fs::path folder = story.ThemeFile("", "Hostile");
  const pid_t program = StartChild([&] { return ChangeForEver(folder, random); });
  int loaded = 0;
  auto longest = Clock::duration::zero();
  for (int load = 0; load < 200; ++load) {
    story.state.ThemeName = "Hostile";
    story.desktop.Boxes.clear();
    const auto begin = Clock::now();
    EXPECT_TRUE(LoadTheme(story.program.game, "Hostile"));
    longest = std::max(longest, Clock::now() - begin);
    const bool whole = story.state.ThemeName == "Hostile";
    loaded += whole ? 1 : 0;
    if (!whole) {
      EXPECT_NE(story.desktop.Boxes.at(0).text.find("Hostile"), std::string::npos);
    }
  }
  ::kill(program, SIGKILL);
  EXPECT_EQ(StatusOf(program), -1);
  std::cout << "200 loads, " << loaded << " of the changing theme, the longest "
            << std::chrono::duration_cast<std::chrono::milliseconds>(longest).count() << " ms\n";
  EXPECT_LT(longest, kAtOnce);
  EXPECT_TRUE(loaded > 0 && loaded < 200);
}

}  // namespace
}  // namespace sorvex
