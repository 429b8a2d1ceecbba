// SPDX-License-Identifier: MIT
// Finding theme files by name, whatever their case, and opening only what is a file.
#include "base/files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "support/temp_folder.h"

namespace sorvex {
namespace {

class Files : public testing::Test {
 protected:
  std::string Named(const char* name) const { return (folder.Path() / name).string(); }
  std::string Found(const char* name) const { return FindFile(folder.Path().string(), name); }

  TempFolder folder;
};

TEST_F(Files, AreFoundInAnotherCaseUnlessTwoCompete) {
  WriteFile(Named("THEME.INI"), "a");
  EXPECT_EQ(Found("Theme.ini"), Named("THEME.INI"));
  WriteFile(Named("theme.ini"), "b");
  EXPECT_EQ(Found("Theme.ini"), Named("Theme.ini")) << "neither may be guessed at";
  WriteFile(Named("Theme.ini"), "c");
  EXPECT_EQ(Found("Theme.ini"), Named("Theme.ini"));
  EXPECT_EQ(Found("bg.bmp"), Named("bg.bmp"));
  EXPECT_EQ(FindFile(Named("no-folder"), "bg.bmp"), Named("no-folder") + "/bg.bmp");
}

TEST_F(Files, ExistWhenTheyCanBeOpened) {
  WriteFile(Named("file"), "");
  EXPECT_TRUE(ModFileExist::FileExists(Named("file")));
  EXPECT_FALSE(ModFileExist::FileExists(Named("missing")));
  EXPECT_FALSE(ModFileExist::FileExists(folder.Path().string())) << "a folder is no file";
  ASSERT_EQ(mkfifo(Named("pipe").c_str(), 0600), 0);
  EXPECT_FALSE(ModFileExist::FileExists(Named("pipe"))) << "opening it would wait for ever";
  if (geteuid() == 0) return;  // root opens everything
  ASSERT_EQ(chmod(Named("file").c_str(), 0), 0);
  EXPECT_FALSE(ModFileExist::FileExists(Named("file")));
}

TEST_F(Files, AreReadWholeUpToALimit) {
  WriteFile(Named("file"), std::string("a\0\r\n", 4));
  EXPECT_EQ(ReadFile(Named("file"), 4), std::string("a\0\r\n", 4));
  EXPECT_EQ(ReadFile(Named("file"), 3), std::nullopt);
  EXPECT_EQ(ReadFile(Named("missing"), 100), std::nullopt);
  EXPECT_EQ(ReadFile(folder.Path().string(), 100000), std::nullopt);
}

}  // namespace
}  // namespace sorvex
