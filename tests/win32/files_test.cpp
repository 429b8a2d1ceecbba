// SPDX-License-Identifier: MIT
// A theme's highscore file on this system's disk: its letters, its folder's name, and what stands in the way of
// writing.
#include "base/files.h"

#include <windows.h>
#include <gtest/gtest.h>

#include <array>
#include <functional>

#include "base/limits.h"
#include "base/runtime_error.h"
#include "highscores/highscore_table.h"
#include "highscores/panel.h"
#include "platform/desktop_properties.h"
#include "platform/win32/write_whole_file.h"
#include "support/temp_folder.h"
#include "support/theme_folder.h"
#include "themes/theme_files.h"
#include "win32/the_desktop.h"

namespace sorvex {
namespace {

namespace fs = std::filesystem;

std::string Text(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

constexpr char8_t kFolder[] = u8"Θέμα 日本";

// As written on Linux, where the name of the folder and the letters of the table are the same UTF-8.
TEST(ATableWrittenElsewhere, IsReadAndWrittenBackWithEveryLetter) {
  const TempFolder folder(
      fs::path(std::u8string(reinterpret_cast<const char8_t*>(TheDesktop().ProgramFolder().c_str()))));
  const fs::path root = folder.Path() / kFolder;
  const std::string theme = Text(folder.Path().filename() / kFolder);
  const std::string rows = "\"Ξένια\"\r\n\"24.11.26\"\r\n\"12.5\"\r\n\"花子\"\r\n\"24.11.26\"\r\n\"13\"\r\n";
  frmMain form;
  PaintDesign(TheDesktop(), form);
  BuildHighScoreRows(TheDesktop(), form);
  WriteFile(root / "HIGHSCORES.INI", rows);
  for (int i = 0; i < 2; ++i) {
    LoadHighScores(TheDesktop(), form, theme);
    EXPECT_EQ(HighScoreAt(form, 1).name, "花子");
    EXPECT_EQ(HighScoreAt(form, 2).name, "Nobody");
    SaveHighScores(TheDesktop(), form, theme, [] { return true; });
    EXPECT_TRUE(ReadWholeFile(root / "HighScores.ini").starts_with(rows));
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(root), {}), 1) << "nothing is left beside it";
}

TEST(UpdatingAFile, LosesNothingOfOthersThatUpdateItAtOnce) {
  const TempFolder folder;
  static std::string path;
  path = Text(folder.Path() / "table");
  WriteFile(path, "");
  const auto addTwenty = [](void*) -> DWORD {
    for (int i = 0; i < 20; ++i) UpdateFile(path, [] { return ReadWholeFile(path) + "."; });
    return 0;
  };
  std::array<HANDLE, 3> others{};
  for (HANDLE& other : others) other = ::CreateThread(nullptr, 0, addTwenty, nullptr, 0, nullptr);
  ::WaitForMultipleObjects(static_cast<DWORD>(others.size()), others.data(), TRUE, INFINITE);
  for (const HANDLE other : others) ::CloseHandle(other);
  EXPECT_EQ(ReadWholeFile(path).size(), 60U);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), {}), 1);
}

// Names on this system's disks may be no text at all.
TEST(AFolderWhoseNameIsNoText, IsLeftOutOfTheList) {
  const TempFolder folder;
  fs::create_directory(folder.Path() / "Theme1");
  const std::wstring broken = folder.Path().wstring() + L"\\broken \xD800";
  if (::CreateDirectoryW(broken.c_str(), nullptr) == 0) GTEST_SKIP() << "this disk has no such names";
  EXPECT_EQ(FoldersIn(Text(folder.Path())), std::vector<std::string>{"Theme1"});
  EXPECT_EQ(fs::path(FindFile(Text(folder.Path()), "THEME2")).filename(), "THEME2");
}

TEST(WritingAFile, RefusesWhatIsNotAWritableFileAndLeavesItAlone) {
  const TempFolder folder;
  const fs::path root = folder.Path() / kFolder;
  WriteFile(root / "table.ini", "old");
  WriteFile(root / "read-only", "old");
  WriteFile(root / "in use", "old");
  fs::create_directory(root / "folder");
  ::SetFileAttributesW((root / "read-only").c_str(), FILE_ATTRIBUTE_READONLY);
  const HANDLE use =
      ::CreateFileW((root / "in use").c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(use, INVALID_HANDLE_VALUE);
  const struct {
    const char* path;
    int error;  // 0: written
    const char* holds;
  } cases[] = {{"table.ini", 0, "new"}, {"new.ini", 0, "new"},         {"read-only", 75, "old"},
               {"in use", 75, "old"},   {"folder", 75, nullptr},       {"folder/", 75, nullptr},
               {"a?b", 75, nullptr},    {"nowhere/t.ini", 76, nullptr}};
  for (const auto& c : cases) {
    int error = 0;
    try {
      TheDesktop().UpdateFile(Text(root / c.path), [] { return "new"; });
    } catch (const RuntimeError& thrown) {
      error = thrown.Number();
    }
    EXPECT_EQ(error, c.error) << c.path;
    if (c.holds != nullptr) {
      EXPECT_EQ(ReadWholeFile(root / c.path), c.holds);
    }
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(root), {}), 5) << "nothing is left beside them";
  ::CloseHandle(use);
  ::SetFileAttributesW((root / "read-only").c_str(), FILE_ATTRIBUTE_NORMAL);
}

// What reading the theme says, which it has to say at once.
std::string RefusalOf(const fs::path& theme) {
  const DWORD begin = ::GetTickCount();
  std::string refusal;
  try {
    ReadTheme(Text(theme));
  } catch (const ThemeError& error) {
    refusal = error.what();
  }
  EXPECT_LT(::GetTickCount() - begin, 500U);
  return refusal;
}

TEST(AHostileFile, IsNamedAtOnceInEveryRole) {
  const TempFolder folder;
  const fs::path theme = folder.Path() / "Theme1";
  const std::tuple<const char*, std::function<void(const fs::path&)>, bool> kinds[] = {
      // whether text files are refused too
      {"folder", [](const fs::path& file) { fs::create_directory(file); }, true},
      {"liar", [](const fs::path& file) { WriteFile(file, "BM" + std::string(kLongestText, '\xFF')); }, true},
      {"cut", [](const fs::path& file) { WriteFile(file, "BM"); }, true},
      {"empty", [](const fs::path& file) { WriteFile(file, ""); }, false}};
  for (const char* role : {"Theme.ini", "Theme2.ini", "bg.bmp", "pS.bmp", "pM.bmp", "ss1.bmp", "sm1.bmp", "cs1.bmp",
                           "cm1.bmp", "ThemeDetails.ini"}) {
    WriteTheme(folder.Path(), CupTheme(2));
    const bool isPicture = std::string_view(role).ends_with(".bmp");
    for (const auto& [what, make, isBadText] : kinds) {
      fs::remove_all(theme / role);
      make(theme / role);
      const std::string refusal = RefusalOf(theme);
      if (isPicture || (isBadText && role != std::string_view("ThemeDetails.ini"))) {
        EXPECT_TRUE(refusal.starts_with(role)) << role << ", " << what << ": " << refusal;
      }
    }
    fs::remove_all(theme / role);
    WriteTheme(folder.Path(), CupTheme(2));
    if (!fs::exists(theme / role)) continue;
    const HANDLE use =
        ::CreateFileW((theme / role).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_TRUE(RefusalOf(theme).starts_with(role)) << "in use by another program";
    ::CloseHandle(use);
    EXPECT_EQ(RefusalOf(theme), "");
  }
}

TEST(ADevice, IsNoFileAndNothingWaitsForIt) {
  const TempFolder folder;
  const HANDLE pipe = ::CreateNamedPipeW(L"\\\\.\\pipe\\sorvex-test", PIPE_ACCESS_DUPLEX, 0, 1, 0, 0, 0, nullptr);
  EXPECT_NE(pipe, INVALID_HANDLE_VALUE);
  const DWORD begin = ::GetTickCount();
  for (const char* name : {"NUL", "CON", "CONIN$", "COM1", "LPT1", "AUX", "PRN", "NUL.bmp"})
    for (const std::string& path : {std::string(name), Text(folder.Path() / name), "\\\\.\\" + std::string(name)})
      EXPECT_EQ(ReadFile(path, 100000), std::nullopt) << path;
  EXPECT_EQ(ReadFile("\\\\.\\pipe\\sorvex-test", 100000), std::nullopt);
  EXPECT_LT(::GetTickCount() - begin, 500U);
  ::CloseHandle(pipe);
}

}  // namespace
}  // namespace sorvex
