// SPDX-License-Identifier: MIT
// The registry module over the system's own functions.
#include <windows.h>
#include <aclapi.h>
#include <gtest/gtest.h>

#include "support/registry_values.h"
#include "win32/the_desktop.h"

namespace sorvex {
namespace {

using namespace std::string_literals;

constexpr RegistryKey kCurrentUser = 0x80000001;  // where everybody may write
constexpr char kKey[] = "Software\\Quennet\\Sorvex-Test";

class Registry : public testing::Test {
 protected:
  Registry() { ::RegDeleteTreeA(HKEY_CURRENT_USER, kKey); }
  ~Registry() override { ::RegDeleteTreeA(HKEY_CURRENT_USER, kKey); }

  sorvex::Registry& registry = TheDesktop().SystemRegistry();
};

TEST_F(Registry, StoresValuesAsTheirTypeAsks) { ExpectTypedValues(registry, kCurrentUser, kKey); }

TEST_F(Registry, WithoutWriteAccessNothingHappens) {
  EXPECT_EQ(::RegSetKeyValueA(HKEY_CURRENT_USER, kKey, "Path", REG_SZ, "old", 4), ERROR_SUCCESS);
  HKEY key = nullptr;
  ASSERT_EQ(::RegOpenKeyExA(HKEY_CURRENT_USER, kKey, 0, READ_CONTROL | WRITE_DAC, &key), ERROR_SUCCESS);
  const auto allowEveryone = [&](DWORD access) {
    EXPLICIT_ACCESSA entry{};
    ::BuildExplicitAccessWithNameA(&entry, const_cast<char*>("EVERYONE"), access, SET_ACCESS, NO_INHERITANCE);
    PACL list = nullptr;
    EXPECT_EQ(::SetEntriesInAclA(1, &entry, nullptr, &list), ERROR_SUCCESS);
    EXPECT_EQ(::SetSecurityInfo(key, SE_REGISTRY_KEY, DACL_SECURITY_INFORMATION, nullptr, nullptr, list, nullptr),
              ERROR_SUCCESS);
    ::LocalFree(list);
  };
  allowEveryone(KEY_READ | WRITE_DAC);
  RegistryKey refused = 0;
  EXPECT_EQ(registry.Open(kCurrentUser, kKey, 0x3F, refused), ERROR_ACCESS_DENIED);
  EXPECT_EQ(refused, 0U);
  mdlRegistry::CreateRegistryKey(registry, kCurrentUser, kKey);
  mdlRegistry::WriteRegistryValue(registry, kCurrentUser, kKey, "Path", "new"s, kRegSz);
  allowEveryone(KEY_ALL_ACCESS);
  EXPECT_EQ(mdlRegistry::ReadRegistryValue(registry, kCurrentUser, kKey, "Path"), mdlRegistry::Variant("old\0"s));
  ::RegCloseKey(key);
}

}  // namespace
}  // namespace sorvex
