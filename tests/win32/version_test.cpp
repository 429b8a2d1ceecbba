// SPDX-License-Identifier: MIT
// The version resource: what the program reads of itself, and what the shell shows of it.
#include "platform/version.h"

#include <windows.h>
#include <gtest/gtest.h>

#include <vector>

#include "win32/the_desktop.h"

namespace sorvex {
namespace {

TEST(Version, IsReadFromTheResource) {
  const VersionInfo version = TheDesktop().Version();
  EXPECT_EQ(version.Title, version::kTitle);
  EXPECT_EQ(version.Major, version::kMajor);
  EXPECT_EQ(version.Minor, version::kMinor);
  EXPECT_EQ(version.Revision, version::kRevision);
  EXPECT_EQ(version.Comments, version::kComments);
  EXPECT_EQ(version.LegalCopyright, version::kLegalCopyright);
}

// Of the program that was built beside this one; the tests run in its folder.
TEST(Version, OfTheProgramHasEveryField) {
  constexpr char kProgram[] = "Sorvex.exe";
  std::vector<char> resource(::GetFileVersionInfoSizeA(kProgram, nullptr));
  ASSERT_TRUE(::GetFileVersionInfoA(kProgram, 0, static_cast<DWORD>(resource.size()), resource.data()));
  void* data = nullptr;
  UINT size = 0;
  ASSERT_TRUE(::VerQueryValueA(resource.data(), "\\", &data, &size));
  const auto& numbers = *static_cast<const VS_FIXEDFILEINFO*>(data);
  for (const DWORD high : {numbers.dwFileVersionMS, numbers.dwProductVersionMS}) EXPECT_EQ(high, 0x10000U);
  for (const DWORD low : {numbers.dwFileVersionLS, numbers.dwProductVersionLS}) EXPECT_EQ(low, 0U);
  const std::pair<const char*, const char*> fields[] = {{"FileVersion", "1.00"},
                                                        {"ProductVersion", "1.00"},
                                                        {"ProductName", "Sorvex"},
                                                        {"InternalName", "Sorvex"},
                                                        {"OriginalFilename", "Sorvex.exe"},
                                                        {"Comments", version::kComments},
                                                        {"FileDescription", version::kComments},
                                                        {"CompanyName", "."},
                                                        {"LegalCopyright", version::kLegalCopyright}};
  for (const auto& [name, text] : fields) {
    ASSERT_TRUE(
        ::VerQueryValueA(resource.data(), (std::string("\\StringFileInfo\\040904B0\\") + name).c_str(), &data, &size))
        << name;
    EXPECT_STREQ(static_cast<const char*>(data), text) << name;
  }
}

}  // namespace
}  // namespace sorvex
