// SPDX-License-Identifier: MIT
// A saved file is the old one or the new one, whatever stands in the way.
#include "platform/posix/write_whole_file.h"

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <vector>

#include "base/runtime_error.h"
#include "posix/child.h"
#include "support/temp_folder.h"

namespace sorvex {
namespace {

namespace fs = std::filesystem;

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

std::ptrdiff_t FilesIn(const fs::path& folder) { return std::distance(fs::directory_iterator(folder), {}); }

TEST(WritingAFile, FollowsLinksAndKeepsThemWithPermissionsAndOwner) {
  const TempFolder folder;
  const fs::path& root = folder.Path();
  WriteFile(root / "real/table.ini", "old");
  ::chmod((root / "real/table.ini").c_str(), 0646);
  const uid_t owner = ::chown((root / "real/table.ini").c_str(), kNobody, kNobody) == 0 ? kNobody : ::geteuid();
  fs::create_hard_link(root / "real/table.ini", root / "being read");
  fs::create_symlink("real/table.ini", root / "relative");
  fs::create_symlink(root / "relative", root / "chained");
  fs::create_symlink("real/new.ini", root / "dangling");
  const std::pair<const char*, const char*> cases[] = {
      {"relative", "real/table.ini"}, {"chained", "real/table.ini"}, {"dangling", "real/new.ini"}};
  for (const auto& [path, file] : cases) {
    EXPECT_EQ(ErrorOfWriting(root / path, path), 0) << path;
    EXPECT_EQ(ReadWholeFile(root / file), path);
    EXPECT_TRUE(fs::is_symlink(root / path)) << path;
  }
  struct stat saved {};
  EXPECT_EQ(::stat((root / "relative").c_str(), &saved), 0);
  EXPECT_EQ(saved.st_mode & 07777, 0646U);
  EXPECT_EQ(saved.st_uid, owner) << "a table saved by root is still its player's";
  EXPECT_EQ(ReadWholeFile(root / "being read"), "old") << "a reader of the old file still sees all of it";
  EXPECT_EQ(FilesIn(root / "real"), 2);
}

TEST(WritingAFile, KeepsTheAccessListAndClearsWhatKilledSavesLeft) {
  const TempFolder folder;
  const fs::path& root = folder.Path();
  const fs::path path = root / "HighScores.ini";
  WriteFile(path, "old");
  // Version 2; user::rw-, user:nobody:rw-, group::r--, mask::rw-, other::---
  constexpr char kList[] =
      "\2\0\0\0"
      "\1\0\6\0\xFF\xFF\xFF\xFF"
      "\2\0\6\0\xFE\xFF\0\0"
      "\4\0\4\0\xFF\xFF\xFF\xFF"
      "\x10\0\6\0\xFF\xFF\xFF\xFF"
      "\x20\0\0\0\xFF\xFF\xFF\xFF";
  const std::string_view list(kList, sizeof kList - 1);
  constexpr char kAttribute[] = "system.posix_acl_access";
  const bool hasLists = ::setxattr(path.c_str(), kAttribute, list.data(), list.size(), 0) == 0;
  const std::pair<const char*, bool> files[] = {
      {".sorvex-1-2", false}, {".sorvex-3-4 mine", true}, {".sorvex-5-6", true}, {".sorvex-notes", true}};
  for (const auto& [name, stays] : files) {
    WriteFile(root / name, "");
    if (name != std::string_view(".sorvex-5-6"))
      fs::last_write_time(root / name, fs::file_time_type::clock::now() - std::chrono::seconds(61));
  }
  EXPECT_EQ(ErrorOfWriting(path, "new"), 0);
  for (const auto& [name, stays] : files) EXPECT_EQ(fs::exists(root / name), stays) << name;
  std::string kept(100, '\0');
  const ssize_t size = ::getxattr(path.c_str(), kAttribute, kept.data(), kept.size());
  EXPECT_EQ(kept.substr(0, static_cast<std::size_t>(std::max<ssize_t>(size, 0))), hasLists ? list : "");
}

TEST(WritingAFile, NeedsNoMountThatTakesAMode) {
  const TempFolder folder;
  WriteFile(folder.Path() / "real/HighScores.ini", "old");
  const fs::path mount = folder.Path() / "mount";
  fs::create_directory(mount);
  const std::string run = "bindfs --chmod-deny " + (folder.Path() / "real").string() + " " + mount.string();
  if (std::system((run + " 2>/dev/null").c_str()) != 0) GTEST_SKIP() << "no user file systems here";
  EXPECT_NE(::chmod((mount / "HighScores.ini").c_str(), 0600), 0);
  ::chmod((folder.Path() / "real/HighScores.ini").c_str(), 0664);
  EXPECT_EQ(ErrorOfWriting(mount / "HighScores.ini", "new"), 0);
  EXPECT_EQ(ReadWholeFile(mount / "HighScores.ini"), "new");
  EXPECT_EQ(fs::status(mount / "HighScores.ini").permissions() & fs::perms{0444}, fs::perms{0444})
      << "others can still play";
  EXPECT_EQ(std::system(("fusermount -u " + mount.string()).c_str()), 0);
}

TEST(UpdatingAFile, LosesNothingOfOthersThatUpdateItAtOnce) {
  const TempFolder folder;
  const std::string path = (folder.Path() / "table").string();
  WriteFile(path, "");
  const auto addTwenty = [&] {
    for (int i = 0; i < 20; ++i) UpdateFile(path, [&] { return ReadWholeFile(path) + "."; });
    return 0;
  };
  std::vector<pid_t> programs(4);
  for (pid_t& program : programs) program = StartChild(addTwenty);
  for (const pid_t program : programs) EXPECT_EQ(StatusOf(program), 0);
  EXPECT_EQ(ReadWholeFile(path).size(), 80U);
  EXPECT_EQ(FilesIn(folder.Path()), 1);
}

TEST(WritingAFile, RefusesWhatIsNotAWritableFile) {
  const TempFolder folder;
  const fs::path& root = folder.Path();
  WriteFile(root / "read-only", "old");
  ::chmod((root / "read-only").c_str(), 0444);
  fs::create_symlink("read-only", root / "link to read-only");
  fs::create_symlink("loop", root / "loop");
  fs::create_directory(root / "folder");
  const std::pair<const char*, int> cases[] = {{"read-only", 75}, {"link to read-only", 75}, {"loop", 75},
                                               {"folder", 75},    {"folder/", 75},           {"nowhere/t", 76}};
  for (const auto& [path, error] : cases) EXPECT_EQ(ErrorOfWriting(root / path, "new"), error) << path;
  EXPECT_EQ(ReadWholeFile(root / "read-only"), "old");
  EXPECT_EQ(FilesIn(root), 4);
}

TEST(WritingAFile, OverwritesInPlaceWhereNothingCanBeCreatedOrReplaced) {
  const TempFolder folder;
  const fs::path path = folder.Path() / "HighScores.ini";
  WriteFile(path, "0123456789");
  ::chmod(path.c_str(), 0666);
  // In a sticky folder anybody may create files, but not replace those of others (here: of root).
  for (const mode_t mode : {mode_t{0555}, mode_t{01777}}) {
    ::chmod(folder.Path().c_str(), mode);
    for (const std::string& text : {std::string(100000, 'x'), std::string("short")}) {
      EXPECT_EQ(InChild([&] { return BecomeOrdinaryUser() ? ErrorOfWriting(path, text) : kCannotTry; }), 0);
      EXPECT_EQ(ReadWholeFile(path), text);
    }
    EXPECT_EQ(FilesIn(folder.Path()), 1);
  }
  ::chmod(folder.Path().c_str(), 0755);
}

// The error of saving a megabyte where `limitRoom` left less; kDamaged when the old table or a stray file tells of it.
int ErrorOfSavingTooMuch(mode_t folderMode, bool (*limitRoom)(const fs::path&)) {
  const TempFolder folder;
  ::chmod(folder.Path().c_str(), 0755);
  return InChild([&] {
    const fs::path place = folder.Path() / "Theme1";
    const fs::path path = place / "HighScores.ini";
    fs::create_directory(place);
    if (!limitRoom(place)) return kCannotTry;
    WriteFile(path, "the old table");
    ::chmod(path.c_str(), 0666);
    ::chmod(place.c_str(), folderMode);
    if (!BecomeOrdinaryUser()) return kCannotTry;
    const int error = ErrorOfWriting(path, std::string(1 << 20, 'x'));
    const bool intact = ReadWholeFile(path) == "the old table" && FilesIn(place) == 1;
    ::chmod(place.c_str(), 0755);
    return intact ? error : kDamaged;
  });
}

TEST(WritingAFile, LeavesTheOldOneWhenItMayNotGrowOrTheDiskIsFull) {
  const auto limit = [](const fs::path&) {
    const rlimit most{64 << 10, 64 << 10};
    return std::signal(SIGXFSZ, SIG_IGN) != SIG_ERR && ::setrlimit(RLIMIT_FSIZE, &most) == 0;
  };
  const auto smallDisk = [](const fs::path& place) {
    return ::unshare(CLONE_NEWNS) == 0 && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           ::mount("none", place.c_str(), "tmpfs", 0, "size=64k") == 0;
  };
  const mode_t folderModes[] = {0777, 0555};  // replaced, and overwritten in place
  for (const mode_t mode : folderModes) EXPECT_EQ(ErrorOfSavingTooMuch(mode, limit), 57);
  for (const mode_t mode : folderModes) {
    const int error = ErrorOfSavingTooMuch(mode, smallDisk);
    if (error == kCannotTry) GTEST_SKIP() << "a small file system can only be mounted by root";
    EXPECT_EQ(error, 61);
  }
}

}  // namespace
}  // namespace sorvex
