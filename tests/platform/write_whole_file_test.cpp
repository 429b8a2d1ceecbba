// SPDX-License-Identifier: MIT
// A saved file is the old one or the new one, whatever stands in the way.
#include "platform/posix/write_whole_file.h"

#include <grp.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>

#include "base/runtime_error.h"
#include "support/temp_folder.h"

namespace sorvex {
namespace {

namespace fs = std::filesystem;

constexpr uid_t kNobody = 65534;
constexpr int kCannotTry = 200;
constexpr int kDamaged = 201;

int ErrorOfWriting(const fs::path& path, std::string_view bytes) {
  try {
    WriteWholeFile(path, bytes);
    return 0;
  } catch (const RuntimeError& error) {
    return error.Number();
  }
}

// What `run` returned in a process of its own, whose user and limits it may change.
int InChild(const std::function<int()>& run) {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(run());
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// Permissions of folders do not bind root.
bool BecomeOrdinaryUser() {
  return ::geteuid() != 0 || (::setgroups(0, nullptr) == 0 && ::setgid(kNobody) == 0 && ::setuid(kNobody) == 0);
}

std::ptrdiff_t FilesIn(const fs::path& folder) {
  return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

struct stat StatusOf(const fs::path& path) {
  struct stat status {};
  EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
  return status;
}

TEST(WriteWholeFile, FollowsLinksAndKeepsThemWithPermissionsAndOwner) {
  const TempFolder folder;
  const fs::path& root = folder.Path();
  WriteFile(root / "themes/plain.ini", "old");
  WriteFile(root / "real/table.ini", "old");
  for (const char* name : {"themes/plain.ini", "real/table.ini"}) {
    ::chmod((root / name).c_str(), 0646);
    if (::geteuid() == 0) {
      ASSERT_EQ(::chown((root / name).c_str(), kNobody, kNobody), 0);
    }
  }
  fs::create_symlink("../real/table.ini", root / "themes/relative");
  fs::create_symlink("relative", root / "themes/chained");
  fs::create_symlink(root / "themes/chained", root / "absolute");
  fs::create_symlink("../real/new.ini", root / "themes/dangling");

  const struct {
    const char* path;
    const char* file;
  } cases[] = {{"themes/plain.ini", "themes/plain.ini"},
               {"themes/relative", "real/table.ini"},
               {"themes/chained", "real/table.ini"},
               {"absolute", "real/table.ini"},
               {"themes/dangling", "real/new.ini"}};
  for (const auto& [path, file] : cases) {
    const bool isLink = fs::is_symlink(root / path);
    const std::string text = std::string("written through ") + path;
    EXPECT_EQ(ErrorOfWriting(root / path, text), 0) << path;
    EXPECT_EQ(ReadWholeFile(root / file), text);
    EXPECT_EQ(fs::is_symlink(root / path), isLink) << path;
  }
  for (const char* name : {"themes/plain.ini", "real/table.ini"}) {
    EXPECT_EQ(StatusOf(root / name).st_mode & 07777, 0646U) << name;
    if (::geteuid() == 0) {
      EXPECT_EQ(StatusOf(root / name).st_uid, kNobody) << name;
    }
  }
  EXPECT_EQ(FilesIn(root / "themes"), 4);
  EXPECT_EQ(FilesIn(root / "real"), 2);
}

TEST(WriteWholeFile, NewFilesFollowTheUmask) {
  const TempFolder folder;
  EXPECT_EQ(InChild([&] {
              ::umask(027);
              return ErrorOfWriting(folder.Path() / "new.ini", "x");
            }),
            0);
  EXPECT_EQ(StatusOf(folder.Path() / "new.ini").st_mode & 07777, 0640U);
}

TEST(WriteWholeFile, AReaderOfTheOldFileStillSeesAllOfIt) {
  const TempFolder folder;
  const fs::path path = folder.Path() / "HighScores.ini";
  WriteFile(path, "the old table");
  std::ifstream reader(path);
  EXPECT_EQ(ErrorOfWriting(path, "new"), 0);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), "the old table");
  EXPECT_EQ(ReadWholeFile(path), "new");
}

TEST(WriteWholeFile, RefusesWhatIsNotAWritableFile) {
  const TempFolder folder;
  const fs::path& root = folder.Path();
  WriteFile(root / "read-only", "old");
  ::chmod((root / "read-only").c_str(), 0444);
  fs::create_symlink("read-only", root / "link to read-only");
  fs::create_symlink("loop", root / "loop");
  fs::create_directory(root / "folder");
  ASSERT_EQ(::mkfifo((root / "pipe").c_str(), 0666), 0);
  const std::ptrdiff_t before = FilesIn(root);

  const struct {
    const char* path;
    int error;
  } cases[] = {{"read-only", 75},
               {"link to read-only", 75},
               {"loop", 75},
               {"folder", 75},
               {"folder/", 75},
               {"pipe", 75},
               {"nowhere/table.ini", 76},
               {"read-only/table.ini", 76}};
  for (const auto& [path, error] : cases) EXPECT_EQ(ErrorOfWriting(root / path, "new"), error) << path;
  EXPECT_EQ(ErrorOfWriting("", "new"), 75);
  EXPECT_EQ(ReadWholeFile(root / "read-only"), "old");
  EXPECT_TRUE(fs::is_fifo(root / "pipe"));
  EXPECT_EQ(FilesIn(root), before);
}

TEST(WriteWholeFile, OverwritesInPlaceWhereNothingCanBeCreatedOrReplaced) {
  const TempFolder folder;
  ::chmod(folder.Path().c_str(), 0755);
  // In a sticky folder anybody may create files, but not replace those of others (here: of root).
  for (const mode_t mode : {mode_t{0555}, mode_t{01777}}) {
    const fs::path place = folder.Path() / std::to_string(mode);
    const fs::path path = place / "HighScores.ini";
    WriteFile(path, "0123456789");
    ::chmod(path.c_str(), 0666);
    ::chmod(place.c_str(), mode);
    const ino_t file = StatusOf(path).st_ino;
    for (const std::string& text : {std::string(100000, 'x'), std::string("short")}) {
      EXPECT_EQ(InChild([&] { return BecomeOrdinaryUser() ? ErrorOfWriting(path, text) : kCannotTry; }), 0);
      EXPECT_EQ(ReadWholeFile(path), text);
    }
    if (mode == 0555) {
      EXPECT_EQ(InChild([&] { return BecomeOrdinaryUser() ? ErrorOfWriting(place / "new", "") : kCannotTry; }), 75);
    }
    if (mode == 0555 || ::geteuid() == 0) {
      EXPECT_EQ(StatusOf(path).st_ino, file);
    }
    EXPECT_EQ(FilesIn(place), 1);
    ::chmod(place.c_str(), 0755);
  }
}

// The error of saving a megabyte where `limitRoom` left less; kDamaged when the old table or a stray file tells of it.
int ErrorOfSavingTooMuch(mode_t folderMode, bool (*limitRoom)(const fs::path&)) {
  const TempFolder folder;
  ::chmod(folder.Path().c_str(), 0755);
  return InChild([&] {
    const fs::path place = folder.Path() / "Theme1";
    fs::create_directory(place);
    if (!limitRoom(place)) return kCannotTry;
    WriteFile(place / "HighScores.ini", "the old table");
    ::chmod((place / "HighScores.ini").c_str(), 0666);
    ::chmod(place.c_str(), folderMode);
    if (!BecomeOrdinaryUser()) return kCannotTry;
    const int error = ErrorOfWriting(place / "HighScores.ini", std::string(1 << 20, 'x'));
    const bool intact = ReadWholeFile(place / "HighScores.ini") == "the old table" && FilesIn(place) == 1;
    ::chmod(place.c_str(), 0755);
    return intact ? error : kDamaged;
  });
}

TEST(WriteWholeFile, AFileThatMayNotGrowLeavesTheOldOne) {
  const auto limit = [](const fs::path&) {
    const rlimit most{64 << 10, 64 << 10};
    return std::signal(SIGXFSZ, SIG_IGN) != SIG_ERR && ::setrlimit(RLIMIT_FSIZE, &most) == 0;
  };
  EXPECT_EQ(ErrorOfSavingTooMuch(0777, limit), 57);
  EXPECT_EQ(ErrorOfSavingTooMuch(0555, limit), 57) << "in place";
}

TEST(WriteWholeFile, AFullDiskLeavesTheOldFile) {
  const auto smallDisk = [](const fs::path& place) {
    return ::unshare(CLONE_NEWNS) == 0 && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           ::mount("none", place.c_str(), "tmpfs", 0, "size=64k") == 0;
  };
  const int replacing = ErrorOfSavingTooMuch(0777, smallDisk);
  if (replacing == kCannotTry) GTEST_SKIP() << "a small file system can only be mounted by root";
  EXPECT_EQ(replacing, 61);
  EXPECT_EQ(ErrorOfSavingTooMuch(0555, smallDisk), 61) << "in place";
}

}  // namespace
}  // namespace sorvex
