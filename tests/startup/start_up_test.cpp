// SPDX-License-Identifier: MIT
// The registry module over a registry in a file, what start-up leaves there, and that nothing there can stop it.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "startup/mdl_registry.h"
#include "support/story.h"

namespace sorvex::mdlRegistry {
namespace {

using namespace std::string_literals;

constexpr auto kSorvex = "Software\\Quennet\\Sorvex";
const std::string kHead = "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\Software\\Quennet\\Sorvex]\r\n";

class StartUp : public testing::Test {
 protected:
  ~StartUp() override {
    for (RegistryKey key = 1; key < 100; ++key) EXPECT_EQ(desktop.RegistryClose(key), 6) << key << " was left open";
  }

  Variant Read() { return ReadRegistryValue(desktop, kLocalMachine, kSorvex, "Path"); }
  void Write(const Variant& value, std::uint32_t type) {
    WriteRegistryValue(desktop, kLocalMachine, kSorvex, "Path", value, type);
  }

  const TempFolder folder;
  const std::filesystem::path store = folder.Path() / "registry.reg";
  HeadlessDesktop desktop{folder.Path(), store};
};

TEST_F(StartUp, StoresValuesAsTheirTypeAsks) {
  CreateRegistryKey(desktop, kLocalMachine, kSorvex);
  const struct {
    Variant value;
    std::uint32_t type;
    std::string line;
    Variant readBack;
  } cases[] = {
      {"/opt/sor"s, kRegSz, "\"Path\"=hex(1):2f,6f,70,74,2f,73,6f,72\r\n", "/opt/sor"s},
      {"\xC3\xBC!\xF0\x9F\x8E\xAF"s, kRegSz, "\"Path\"=hex(1):c3,bc,21,f0\r\n", "\xC3\xBC!\xF0"s},  // 4 characters
      {Variant(), kRegSz, "\"Path\"=hex(1):\r\n", ""s},
      {-12, kRegSz, "\"Path\"=hex(1):2d,31,32\r\n", "-12"s},
      {-2, kRegDword, "\"Path\"=dword:fffffffe\r\n", -2},
      {" 2.5 "s, kRegDword, "\"Path\"=dword:00000002\r\n", 2},
      {"2147483648"s, kRegDword, "\"Path\"=dword:00000002\r\n", 2},  // no such number: nothing is written
      {"text"s, 3, "\"Path\"=dword:00000002\r\n", 2},                // no such type
  };
  for (const auto& c : cases) {
    Write(c.value, c.type);
    EXPECT_EQ(ReadWholeFile(store), kHead + c.line);
    EXPECT_EQ(Read(), c.readBack) << c.line;
  }
}

TEST_F(StartUp, ReadsTextAndNumbersOnlyAndTrimsNothing) {
  const std::pair<const char*, Variant> cases[] = {{"\"Path\"=\"/opt\"", "/opt\0"s},
                                                   {"\"Path\"=hex(4):05,00,00,00,1,2,3,4,5,6,7,8,9,a,b,c,d,e,f,10", 5},
                                                   {"\"Path\"=hex:2f", {}},
                                                   {"\"Path\"=hex(2):2f,00", {}},
                                                   {"", {}}};
  for (const auto& [line, value] : cases) {
    WriteFile(store, kHead + line);
    EXPECT_EQ(Read(), value) << line;
  }
}

TEST_F(StartUp, WritesNothingWithoutAKeyOrTheRightTo) {
  Write("/opt"s, kRegSz);
  EXPECT_FALSE(std::filesystem::exists(store)) << "only CreateRegistryKey makes the key";
  const std::string text = kHead + "\"Path\"=\"/old\"\r\n";
  WriteFile(store, text);
  ::chmod(store.c_str(), 0444);
  EXPECT_EQ(Read(), Variant()) << "the access mask asks for writing";
  CreateRegistryKey(desktop, kLocalMachine, kSorvex);
  Write("/opt"s, kRegSz);
  EXPECT_EQ(ReadWholeFile(store), text);
}

TEST_F(StartUp, RecordsTheFolderOfTheCopyThatRanLastWhereItCan) {
  WriteTheme(folder.Path(), CupTheme(1));
  const std::string mine = folder.Path();
  const std::string other = mine + "/moved";
  const struct {
    std::string programFolder;
    const char* registry;
    Variant recorded;
  } cases[] = {{other, "", other}, {mine, nullptr, mine}, {mine, "not a registry", Variant()}};
  for (const auto& c : cases) {
    if (c.registry != nullptr) WriteFile(store, c.registry);
    HeadlessDesktop its(c.programFolder, store);
    Program program(its);
    program.Initialize();
    EXPECT_EQ(Read(), c.recorded);
    EXPECT_EQ(program.state.ThemeName, "Theme1");
    EXPECT_EQ(its.Boxes.empty(), c.programFolder == mine) << "a box tells of a missing theme only";
  }
  EXPECT_EQ(ReadWholeFile(store), "not a registry");
}

TEST_F(StartUp, AnErrorOutsideAGameIsShownAndTheWindowStays) {
  WriteTheme(folder.Path(), CupTheme(1));
  desktop.Script = {[] { throw PathAccessError(); }, [] {}, [] { throw ProgramEnded{}; }};
  EXPECT_EQ(RunProgram(desktop), 0);
  EXPECT_EQ(desktop.Boxes,
            (std::vector<HeadlessDesktop::Box>{{"Error: 75\r\nPath/File access error", "Sorvex", BoxIcon::Critical}}));
  EXPECT_TRUE(desktop.Script.empty()) << "the window was shown again until it was closed";
}

}  // namespace
}  // namespace sorvex::mdlRegistry
