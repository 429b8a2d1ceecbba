// SPDX-License-Identifier: MIT
// Files found by name whatever their case, on file systems that tell cases apart, and what is no plain file.
#include "base/files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "base/limits.h"
#include "support/temp_folder.h"

namespace sorvex {
namespace {

using namespace std::string_literals;

TEST(Files, AreFoundInAnotherCaseUnlessTwoCompeteAndReadWholeUpToALimit) {
  const TempFolder folder;
  const auto named = [&](const char* name) { return (folder.Path() / name).string(); };
  const auto found = [&] { return FindFile(folder.Path().string(), "Theme.ini"); };
  WriteFile(named("THEME.INI"), "a\0\r\n"s);
  EXPECT_EQ(found(), named("THEME.INI"));
  EXPECT_EQ(ReadFile(found(), 4), "a\0\r\n"s);
  EXPECT_EQ(ReadFile(found(), 3), std::nullopt);
  std::vector<std::string> others;
  for (int i = 0; i < kMostEntries; ++i) WriteFile(others.emplace_back(named(std::to_string(i).c_str())), "");
  EXPECT_EQ(found(), named("Theme.ini")) << "a search of so many could take seconds";
  for (const std::string& other : others) std::filesystem::remove(other);
  WriteFile(named("theme.ini"), "b");
  EXPECT_EQ(found(), named("Theme.ini")) << "neither may be guessed at";
  WriteFile(named("Theme.ini"), "c");
  EXPECT_EQ(found(), named("Theme.ini"));
  ASSERT_EQ(mkfifo(named("pipe").c_str(), 0600), 0);  // opening it would wait for ever
  for (const std::string& none : {named("missing"), named("pipe"), folder.Path().string()}) {
    EXPECT_FALSE(ModFileExist::FileExists(none)) << none;
    EXPECT_EQ(ReadFile(none, 100000), std::nullopt) << none;
  }
}

}  // namespace
}  // namespace sorvex
