// SPDX-License-Identifier: MIT
// The registry module over a registry in a file: what is stored, what comes back, and that no key stays open.
#include "startup/mdl_registry.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "platform/headless/headless_desktop.h"
#include "support/temp_folder.h"

namespace sorvex::mdlRegistry {
namespace {

using namespace std::string_literals;

constexpr auto kSorvex = "Software\\Quennet\\Sorvex";
const std::string kHead = "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\Software\\Quennet\\Sorvex]\r\n";

class CountingDesktop : public HeadlessDesktop {
 public:
  using HeadlessDesktop::HeadlessDesktop;
  int OpenKeys = 0;

  Long RegistryOpen(RegistryKey hive, const std::string& name, std::uint32_t access, RegistryKey& key) override {
    return Counted(HeadlessDesktop::RegistryOpen(hive, name, access, key), 1);
  }
  Long RegistryCreate(RegistryKey hive, const std::string& name, std::uint32_t access, RegistryKey& key) override {
    return Counted(HeadlessDesktop::RegistryCreate(hive, name, access, key), 1);
  }
  Long RegistryClose(RegistryKey key) override { return Counted(HeadlessDesktop::RegistryClose(key), -1); }

 private:
  Long Counted(Long status, int keys) {
    if (status == 0) OpenKeys += keys;
    return status;
  }
};

class MdlRegistryTest : public testing::Test {
 protected:
  ~MdlRegistryTest() override { EXPECT_EQ(desktop.OpenKeys, 0); }

  std::filesystem::path Path() const { return folder_.Path() / "registry.reg"; }
  Variant Read() { return ReadRegistryValue(desktop, kLocalMachine, kSorvex, "Path"); }
  void Write(const Variant& value, std::uint32_t type) {
    WriteRegistryValue(desktop, kLocalMachine, kSorvex, "Path", value, type);
  }

 private:
  TempFolder folder_;

 protected:
  CountingDesktop desktop{folder_.Path(), Path()};
};

TEST_F(MdlRegistryTest, StoresWhatTheTypeAsksFor) {
  CreateRegistryKey(desktop, kLocalMachine, kSorvex);
  const struct {
    Variant value;
    std::uint32_t type;
    std::string line;
    Variant readBack;
  } cases[] = {
      {"/opt/sor"s, kRegSz, "\"Path\"=hex(1):2f,6f,70,74,2f,73,6f,72\r\n", "/opt/sor"s},
      {"\xC3\xBC!\xF0\x9F\x8E\xAF"s, kRegSz, "\"Path\"=hex(1):c3,bc,21,f0\r\n", "\xC3\xBC!\xF0"s},  // 4 characters
      {"\xFF\xFF"s, kRegSz, "\"Path\"=hex(1):ff,ff\r\n", "\xFF\xFF"s},
      {Variant(), kRegSz, "\"Path\"=hex(1):\r\n", ""s},
      {-12, kRegSz, "\"Path\"=hex(1):2d,31,32\r\n", "-12"s},
      {-2, kRegDword, "\"Path\"=dword:fffffffe\r\n", -2},
      {" 2.5 "s, kRegDword, "\"Path\"=dword:00000002\r\n", 2},
      {Variant(), kRegDword, "\"Path\"=dword:00000000\r\n", 0},
  };
  for (const auto& c : cases) {
    Write(c.value, c.type);
    EXPECT_EQ(ReadWholeFile(Path()), kHead + c.line);
    EXPECT_EQ(Read(), c.readBack) << c.line;
  }
}

TEST_F(MdlRegistryTest, WritesNothingForOtherTypesAndForTextThatIsNoNumber) {
  CreateRegistryKey(desktop, kLocalMachine, kSorvex);
  RegistryKey key = 0;
  ASSERT_EQ(desktop.RegistryOpen(kLocalMachine, kSorvex, 0x3F, key), 0);
  EXPECT_EQ(SetOpenKeyValue(desktop, key, "Path", 3, "text"s), 0);
  for (const char* text : {"", "abc", "1x", "2147483648"})
    EXPECT_EQ(SetOpenKeyValue(desktop, key, "Path", kRegDword, text), kNotHandled) << text;
  EXPECT_EQ(SetOpenKeyValue(desktop, 0, "Path", kRegSz, "x"s), 6);
  desktop.RegistryClose(key);
  EXPECT_EQ(ReadWholeFile(Path()), kHead);
}

TEST_F(MdlRegistryTest, ReadsOnlyTextAndNumbersAndTrimsNothing) {
  const struct {
    const char* line;
    Long status;
    Variant value;
  } cases[] = {
      {"\"Path\"=\"/opt\"", 0, "/opt\0"s},
      {"\"Path\"=hex(4):05,00,00,00,1,2,3,4,5,6,7,8,9,a,b,c,d,e,f,10,11,12,13,14", 0, 5},
      {"\"Path\"=hex:2f", kNotHandled, "before"s},
      {"\"Path\"=hex(2):2f,00", kNotHandled, "before"s},
      {"", 2, "before"s},
  };
  for (const auto& c : cases) {
    WriteFile(Path(), kHead + c.line);
    RegistryKey key = 0;
    ASSERT_EQ(desktop.RegistryOpen(kLocalMachine, kSorvex, 0x3F, key), 0);
    Variant value = "before"s;
    EXPECT_EQ(QueryOpenKeyValue(desktop, key, "Path", value), c.status) << c.line;
    EXPECT_EQ(value, c.value) << c.line;
    desktop.RegistryClose(key);
  }
}

TEST_F(MdlRegistryTest, WithoutAKeyOrTheRightToWriteNothingHappens) {
  EXPECT_EQ(Read(), Variant());
  Write("/opt"s, kRegSz);
  EXPECT_FALSE(std::filesystem::exists(Path())) << "only CreateRegistryKey makes the key";

  const std::string text = kHead + "\"Path\"=\"/old\"\r\n";
  WriteFile(Path(), text);
  ::chmod(Path().c_str(), 0444);
  EXPECT_EQ(Read(), Variant()) << "the access mask asks for writing";
  CreateRegistryKey(desktop, kLocalMachine, kSorvex);
  Write("/opt"s, kRegSz);
  EXPECT_EQ(ReadWholeFile(Path()), text);
}

}  // namespace
}  // namespace sorvex::mdlRegistry
