// SPDX-License-Identifier: MIT
// The version resource: what the program reads of itself, and what the shell shows of it.
#include "platform/version.h"

#include <windows.h>
#include <gtest/gtest.h>

#include <vector>

#include "win32/the_desktop.h"

namespace sorvex {
namespace {

// Of the program that was built beside this one; the tests run in its folder.
TEST(Version, IsReadFromTheResourceAndHasEveryField) {
  const VersionInfo version = TheDesktop().Version();
  EXPECT_EQ(std::tie(version.Title, version.Comments, version.LegalCopyright),
            std::tuple(version::kTitle, version::kComments, version::kLegalCopyright));
  EXPECT_EQ(std::tuple(version.Major, version.Minor, version.Revision),
            std::tuple(version::kMajor, version::kMinor, version::kRevision));
  std::vector<char> resource(::GetFileVersionInfoSizeA("Sorvex.exe", nullptr));
  ASSERT_TRUE(::GetFileVersionInfoA("Sorvex.exe", 0, static_cast<DWORD>(resource.size()), resource.data()));
  void* data = nullptr;
  UINT size = 0;
  ASSERT_TRUE(::VerQueryValueA(resource.data(), "\\", &data, &size));
  const auto& numbers = *static_cast<const VS_FIXEDFILEINFO*>(data);
  EXPECT_EQ(std::pair(numbers.dwFileVersionMS, numbers.dwFileVersionLS), std::pair(DWORD{0x10000}, DWORD{0}));
  for (const auto& [name, text] : {std::pair{"FileVersion", "1.00"},
                                   {"ProductVersion", "1.00"},
                                   {"ProductName", "Sorvex"},
                                   {"OriginalFilename", "Sorvex.exe"},
                                   {"FileDescription", version::kComments}}) {
    const std::string path = std::string("\\StringFileInfo\\040904B0\\") + name;
    ASSERT_TRUE(::VerQueryValueA(resource.data(), path.c_str(), &data, &size)) << name;
    EXPECT_STREQ(static_cast<const char*>(data), text) << name;
  }
}

}  // namespace
}  // namespace sorvex
