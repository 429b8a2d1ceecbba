// SPDX-License-Identifier: MIT
// The game's own saves on this system's disk: killed at a random moment, refused, their folder gone.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <iostream>
#include <thread>

#include "base/numbers.h"
#include "highscores/highscore_table.h"
#include "highscores/panel.h"
#include "highscores/record_high_score.h"
#include "platform/desktop_properties.h"
#include "platform/headless/headless_desktop.h"
#include "platform/posix/write_whole_file.h"
#include "posix/child.h"
#include "support/random_surfaces.h"
#include "support/temp_folder.h"
#include "support/theme_folder.h"

namespace sorvex {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

// A program that saves as the real one does.
class Player : public HeadlessDesktop {
 public:
  explicit Player(const fs::path& programFolder) : HeadlessDesktop(programFolder.string()) {
    PaintDesign(*this, form);
    BuildHighScoreRows(*this, form);
    LoadHighScores(*this, form, "Theme1");
  }
  void UpdateFile(const std::string& path, const FileContent& content) override { sorvex::UpdateFile(path, content); }

  // Of each save the time is better than of the one before, its name of another length.
  static HighScore Entry(int save) {
    if (save < 1) return {"Nobody", "00/00/00", "100"};
    return {std::to_string(save) + std::string(static_cast<std::size_t>(save * 7 % 40), 'x'), "03/14/26",
            NumberText(99 - save / 1000.0)};
  }
  void Save(int save) {
    TypeName = [&] { return Entry(save).name; };
    RecordHighScore(*this, form, "Theme1", std::stod(Entry(save).time));
  }

  frmMain form;
};

std::string TableAfter(int saves) {
  std::string text;
  for (int save = saves; save > saves - kHighScoreRows; --save) {
    const HighScore entry = Player::Entry(save);
    for (const std::string& field : {entry.name, entry.date, entry.time}) text += '"' + field + "\"\r\n";
  }
  return text;
}

// Of the program that is killed: numbers of saves, and how long one took.
struct Progress {
  std::atomic<int> begun;
  std::atomic<int> returned;
  std::atomic<Clock::duration> time;
};

class KilledSaves : public testing::TestWithParam<mode_t> {
 protected:
  KilledSaves() {
    WriteFile(table, TableAfter(0));
    ::chmod(folder.Path().c_str(), 0755);
    ::chmod(table.c_str(), 0666);
    ::chmod(table.parent_path().c_str(), GetParam());
  }
  ~KilledSaves() override { ::chmod(table.parent_path().c_str(), 0755); }

  int SaveForEver() const {
    if (!BecomeOrdinaryUser()) return 1;
    Player player(folder.Path());
    for (;;) {
      const auto begin = Clock::now();
      player.Save(++progress->begun);
      progress->time = Clock::now() - begin;
      progress->returned = progress->begun.load();
    }
  }
  // Kills a program that saves, somewhere in the two saves after its first.
  void Kill(Random& random) const {
    const int before = progress->returned;
    const pid_t program = StartChild([this] { return SaveForEver(); });
    const auto begin = Clock::now();
    while (progress->returned == before && Clock::now() - begin < 10s) std::this_thread::sleep_for(100us);
    EXPECT_GT(progress->returned, before) << "a lock or a file of the killed program is in the way";
    std::this_thread::sleep_for(progress->time.load() * random.Number(0, 200) / 100);
    ::kill(program, SIGKILL);
    EXPECT_EQ(StatusOf(program), -1);
  }
  // What killed saves left, from now on looking older than it is.
  int AgeTemporaries() const {
    int left = 0;
    for (const auto& entry : fs::directory_iterator(table.parent_path())) {
      if (entry.path() == table) continue;
      fs::last_write_time(entry, fs::file_time_type::clock::now() - 61s);
      ++left;
    }
    return left;
  }

  const TempFolder folder;
  const fs::path table = folder.Path() / "Theme1" / kHighScoresFile;
  const Shared<Progress> progress;
};

// SORVEX_KILLS says how many; 25 each way.
TEST_P(KilledSaves, LeaveAWholeTableWithEveryTimeWhoseSaveReturned) {
  const bool replaces = (GetParam() & 0222) != 0;
  const char* wanted = std::getenv("SORVEX_KILLS");
  const int kills = wanted != nullptr ? std::stoi(wanted) : 25;
  Random random;
  SCOPED_TRACE(testing::Message() << "SORVEX_SEED=" << random.Seed);
  int inside = 0, newTable = 0, leftOver = 0;
  for (int kill = 0; kill < kills && !HasFailure(); ++kill) {
    Kill(random);
    // In place, what is left of a longer table or of the room for one stands behind the table's end.
    const std::string text = ReadWholeFile(table);
    const auto holds = [&](int saves) {
      return replaces ? text == TableAfter(saves) : text.starts_with(TableAfter(saves));
    };
    const int begun = progress->begun;
    const int returned = progress->returned;
    const bool isNew = begun > returned && holds(begun);
    EXPECT_TRUE(isNew || holds(returned)) << returned << " saves returned, " << begun << " begun, and this is left:\n"
                                          << text;
    inside += begun > returned ? 1 : 0;
    newTable += isNew ? 1 : 0;
    leftOver += AgeTemporaries();
    progress->begun = progress->returned = isNew ? begun : returned;
  }
  std::cout << kills << " kills after " << progress->returned << " saves: " << inside << " inside a save, " << newTable
            << " of them with the new table, " << leftOver << " temporary files left\n";
  EXPECT_GT(inside, kills / 4);
  const auto begin = Clock::now();
  Player(folder.Path()).Save(progress->begun + 1);
  EXPECT_LT(Clock::now() - begin, 5s) << "no lock is left";
  EXPECT_EQ(ReadWholeFile(table), TableAfter(progress->begun + 1));
  EXPECT_EQ(AgeTemporaries(), 0);
}

INSTANTIATE_TEST_SUITE_P(ReplacedAndInPlace, KilledSaves, testing::Values(mode_t{0777}, mode_t{0555}));

// As `chattr` does, with no flag to clear them; false where the file system has none or the user may not set them.
bool SetFlag(const fs::path& path, int flag) {
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  int flags = 0;
  const bool known = ::ioctl(file, FS_IOC_GETFLAGS, &flags) == 0;
  flags = (flags & ~(FS_IMMUTABLE_FL | FS_APPEND_FL)) | flag;
  const bool set = known && ::ioctl(file, FS_IOC_SETFLAGS, &flags) == 0;
  ::close(file);
  return set;
}

TEST(ARefusedSave, IsReportedAndLeavesTheFileAndTheRowsWithTheNewTime) {
  const auto withFlag = [](int flag) { return [=](const fs::path& table) { return SetFlag(table, flag); }; };
  const struct {
    const char* what;
    std::function<bool(const fs::path& table)> prepare;
    int error;
    bool stays;
  } cases[] = {
      {"immutable", withFlag(FS_IMMUTABLE_FL), 75, true},
      {"may only grow", withFlag(FS_APPEND_FL), 75, true},
      {"its folder is gone", [](const fs::path& table) { return fs::remove_all(table.parent_path()) > 0; }, 76, false},
      {"a file is there instead of its folder",
       [](const fs::path& table) {
         fs::remove_all(table.parent_path());
         WriteFile(table.parent_path(), "");
         return true;
       },
       76, false},
      {"a pipe", [](const fs::path& table) { return fs::remove(table) && ::mkfifo(table.c_str(), 0666) == 0; }, 75,
       false},
  };
  for (const auto& [what, prepare, error, stays] : cases) {
    SCOPED_TRACE(what);
    const TempFolder folder;
    const fs::path table = folder.Path() / "Theme1" / kHighScoresFile;
    WriteFile(table, TableAfter(1));
    Player player(folder.Path());
    if (!prepare(table)) {
      std::cout << what << ": cannot be tried here\n";
      continue;
    }
    int thrown = 0;
    try {
      player.Save(2);
    } catch (const RuntimeError& refused) {
      thrown = refused.Number();
    }
    EXPECT_EQ(thrown, error);
    EXPECT_EQ(HighScoreAt(player.form, 0).name, Player::Entry(2).name);
    EXPECT_EQ(HighScoreAt(player.form, 1).name, Player::Entry(1).name);
    if (stays) {
      SetFlag(table, 0);
      EXPECT_EQ(ReadWholeFile(table), TableAfter(1));
      EXPECT_EQ(std::distance(fs::directory_iterator(table.parent_path()), {}), 1);
    }
  }
}

}  // namespace
}  // namespace sorvex
