// SPDX-License-Identifier: MIT
// The registry module over the system's own functions.
#include <windows.h>
#include <aclapi.h>
#include <gtest/gtest.h>

#include <cstdint>

#include "startup/mdl_registry.h"
#include "win32/the_desktop.h"

namespace sorvex {
namespace {

using namespace std::string_literals;
using mdlRegistry::Variant;

constexpr RegistryKey kCurrentUser = 0x80000001;  // where everybody may write
constexpr char kKey[] = "Software\\Quennet\\Sorvex-Test";
constexpr std::uint32_t kReadOnly = KEY_READ;

class Registry : public testing::Test {
 protected:
  Registry() { ::RegDeleteTreeA(HKEY_CURRENT_USER, kKey); }
  ~Registry() override { ::RegDeleteTreeA(HKEY_CURRENT_USER, kKey); }

  Variant Read(const char* name = "Path") { return mdlRegistry::ReadRegistryValue(registry, kCurrentUser, kKey, name); }
  void Write(const Variant& value, std::uint32_t type) {
    mdlRegistry::WriteRegistryValue(registry, kCurrentUser, kKey, "Path", value, type);
  }
  // What another program stores.
  void Store(DWORD type, const std::string& bytes) {
    EXPECT_EQ(::RegSetKeyValueA(HKEY_CURRENT_USER, kKey, "Path", type, bytes.data(), static_cast<DWORD>(bytes.size())),
              ERROR_SUCCESS);
  }
  // Type and bytes as the system has them.
  std::pair<DWORD, std::string> Stored() {
    DWORD type = 0;
    char bytes[64];
    DWORD size = sizeof bytes;
    HKEY key = nullptr;
    EXPECT_EQ(::RegOpenKeyExA(HKEY_CURRENT_USER, kKey, 0, KEY_QUERY_VALUE, &key), ERROR_SUCCESS);
    EXPECT_EQ(::RegQueryValueExA(key, "Path", nullptr, &type, reinterpret_cast<BYTE*>(bytes), &size), ERROR_SUCCESS);
    ::RegCloseKey(key);
    return {type, {bytes, size}};
  }

  sorvex::Registry& registry = TheDesktop().SystemRegistry();
};

TEST_F(Registry, KeepsTextToTheByte) {
  EXPECT_EQ(Read(), Variant()) << "no key";
  Write("C:\\Games", kRegSz);
  EXPECT_EQ(Read(), Variant()) << "writing makes no key";
  mdlRegistry::CreateRegistryKey(registry, kCurrentUser, kKey);
  mdlRegistry::CreateRegistryKey(registry, kCurrentUser, kKey);
  EXPECT_EQ(Read(), Variant()) << "no value";
  Write("C:\\Games", kRegSz);
  EXPECT_EQ(Stored(), std::pair(DWORD{REG_SZ}, "C:\\Games"s)) << "without a terminating zero";
  EXPECT_EQ(Read(), Variant("C:\\Games"));
  Store(REG_SZ, "four\0"s);
  EXPECT_EQ(Read(), Variant("four\0"s)) << "another program's terminating zero";
  Write("", kRegSz);
  EXPECT_EQ(Read(), Variant(""));
}

TEST_F(Registry, KeepsNumbersAndLeavesOtherTypesAlone) {
  mdlRegistry::CreateRegistryKey(registry, kCurrentUser, kKey);
  Write("-7", kRegDword);
  EXPECT_EQ(Stored(), std::pair(DWORD{REG_DWORD}, "\xF9\xFF\xFF\xFF"s));
  EXPECT_EQ(Read(), Variant(Long{-7}));
  Store(REG_EXPAND_SZ, "%PATH%\0"s);
  EXPECT_EQ(Read(), Variant());
  RegistryKey key = 0;
  ASSERT_EQ(registry.Open(kCurrentUser, kKey, kReadOnly, key), ERROR_SUCCESS);
  Variant value;
  EXPECT_EQ(mdlRegistry::QueryOpenKeyValue(registry, key, "Path", value), -1);
  EXPECT_EQ(value, Variant());
  EXPECT_EQ(mdlRegistry::QueryOpenKeyValue(registry, key, "Missing", value), ERROR_FILE_NOT_FOUND);
  EXPECT_EQ(mdlRegistry::SetOpenKeyValue(registry, key, "Path", REG_EXPAND_SZ, "x"), 0) << "nothing to write";
  EXPECT_EQ(mdlRegistry::SetOpenKeyValue(registry, key, "Path", kRegSz, "x"), ERROR_ACCESS_DENIED);
  EXPECT_EQ(registry.Close(key), ERROR_SUCCESS);
  EXPECT_EQ(registry.Close(0), ERROR_INVALID_HANDLE);
  EXPECT_EQ(Stored().first, DWORD{REG_EXPAND_SZ});
}

TEST_F(Registry, WithoutWriteAccessNothingHappens) {
  Store(REG_SZ, "old\0"s);
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
  Write("new", kRegSz);
  EXPECT_EQ(Stored().second, "old\0"s);
  allowEveryone(KEY_ALL_ACCESS);
  ::RegCloseKey(key);
}

TEST_F(Registry, LeaksNoHandle) {
  const auto useAll = [&] {
    Read();
    Write("C:\\Games", kRegSz);
    mdlRegistry::CreateRegistryKey(registry, kCurrentUser, kKey);
    Write("C:\\Games", kRegSz);
    Read();
    Read("Missing");
    ::RegDeleteTreeA(HKEY_CURRENT_USER, kKey);
  };
  // A new handle takes a low number that is free.
  const auto nextHandle = [] {
    const HANDLE handle = ::CreateEventW(nullptr, FALSE, FALSE, nullptr);
    ::CloseHandle(handle);
    return reinterpret_cast<std::intptr_t>(handle);
  };
  useAll();
  const std::intptr_t before = nextHandle();
  constexpr int kRounds = 100;
  constexpr std::intptr_t kStep = 4;
  for (int i = 0; i < kRounds; ++i) useAll();
  EXPECT_LT(nextHandle(), before + kRounds * kStep);
}

}  // namespace
}  // namespace sorvex
