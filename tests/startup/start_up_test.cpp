// SPDX-License-Identifier: MIT
// The registry module over the registry of a system that has none, and what start-up leaves there.
#include <gtest/gtest.h>

#include "startup/mdl_registry.h"
#include "support/story.h"

namespace sorvex::mdlRegistry {
namespace {

using namespace std::string_literals;

constexpr auto kSorvex = "Software\\Quennet\\Sorvex";
constexpr auto kPath = "HKEY_LOCAL_MACHINE\\Software\\Quennet\\Sorvex";

class StartUp : public testing::Test {
 protected:
  ~StartUp() override {
    for (RegistryKey key = 1; key < 100; ++key) EXPECT_EQ(registry.Close(key), 6) << key << " was left open";
  }

  Variant Read() { return ReadRegistryValue(registry, kLocalMachine, kSorvex, "Path"); }
  void Write(const Variant& value, std::uint32_t type) {
    WriteRegistryValue(registry, kLocalMachine, kSorvex, "Path", value, type);
  }
  MapRegistry::Value& Stored() { return registry.content[kPath]["Path"]; }

  const TempFolder folder;
  HeadlessDesktop desktop{folder.Path().string()};
  MapRegistry& registry = desktop.StoredRegistry;
};

TEST_F(StartUp, StoresValuesAsTheirTypeAsks) {
  Write("/opt"s, kRegSz);
  EXPECT_TRUE(registry.content.empty()) << "only CreateRegistryKey makes the key";
  CreateRegistryKey(registry, kLocalMachine, kSorvex);
  const struct {
    Variant value;
    std::uint32_t type;
    MapRegistry::Value stored;
    Variant readBack;
  } cases[] = {
      {"/opt/sor"s, kRegSz, {1, "/opt/sor"}, "/opt/sor"s},
      {"\xC3\xBC!\xF0\x9F\x8E\xAF"s, kRegSz, {1, "\xC3\xBC!\xF0"}, "\xC3\xBC!\xF0"s},  // 4 characters
      {Variant(), kRegSz, {1, ""}, ""s},
      {-12, kRegSz, {1, "-12"}, "-12"s},
      {-2, kRegDword, {4, "\xFE\xFF\xFF\xFF"}, -2},
      {" 2.5 "s, kRegDword, {4, "\2\0\0\0"s}, 2},
      {"2147483648"s, kRegDword, {4, "\2\0\0\0"s}, 2},  // no such number: nothing is written
      {"text"s, 3, {4, "\2\0\0\0"s}, 2},                // no such type
  };
  for (const auto& c : cases) {
    Write(c.value, c.type);
    EXPECT_EQ(Stored(), c.stored) << c.stored.bytes;
    EXPECT_EQ(Read(), c.readBack) << c.stored.bytes;
  }
}

TEST_F(StartUp, ReadsTextAndNumbersOnlyAndTrimsNothing) {
  const std::pair<MapRegistry::Value, Variant> cases[] = {
      {{1, "/opt\0"s}, "/opt\0"s}, {{4, "\5\0\0\0 and twelve more"s}, 5}, {{3, "/"}, {}}, {{2, "/\0"s}, {}}};
  for (const auto& [stored, value] : cases) {
    Stored() = stored;
    EXPECT_EQ(Read(), value) << stored.type;
  }
}

TEST_F(StartUp, FindsKeysWhateverTheCaseAndRefusesWhatWasNotAskedFor) {
  CreateRegistryKey(registry, kLocalMachine, "software\\QUENNET\\Sorvex\\");
  EXPECT_EQ(registry.content.count(kPath), 1U);
  RegistryKey key = 0;
  const struct {
    const char* name;
    Long status;
  } opened[] = {{"Software", 0}, {"Software\\Quennet", 0}, {"Soft", 2}, {kSorvex, 0}, {"Software\\Quennet\\Sor", 2}};
  for (const auto& [name, status] : opened) {
    EXPECT_EQ(registry.Open(kLocalMachine, name, 0x19, key), status) << name;
    if (status == 0) {
      EXPECT_EQ(registry.Close(key), 0);
    }
  }
  EXPECT_EQ(registry.Create(kLocalMachine, "a\\\\b", 0x3F, key), 87);
  EXPECT_EQ(registry.Open(77, kSorvex, 0x3F, key), 6);
  Stored() = {1, "/opt"};
  ASSERT_EQ(registry.Open(kLocalMachine, kSorvex, 0x01, key), 0);
  std::uint32_t type = 0;
  std::uint32_t size = 3;
  char buffer[4];
  EXPECT_EQ(registry.Query(key, "PATH", type, buffer, size), 234) << "too small a buffer";
  EXPECT_EQ(size, 4U);
  EXPECT_EQ(registry.Query(key, "none", type, buffer, size), 2);
  EXPECT_EQ(registry.Set(key, "Path", kRegSz, "x", 1), 5) << "opened for reading";
  EXPECT_EQ(registry.Close(key), 0);
}

TEST_F(StartUp, RecordsTheFolderOfTheCopyThatRanLastAndStoresOnlyWhatChanges) {
  WriteTheme(folder.Path(), CupTheme(1));
  const std::string mine = folder.Path().string();
  const std::string other = mine + "/moved";
  int stores = 0;
  Long status = 0;
  MapRegistry::Content disk;
  const struct {
    std::string programFolder;
    Long status;
    std::string recorded;
    int stores;
  } cases[] = {{other, 0, other, 1}, {mine, 0, mine, 2}, {mine, 0, mine, 2}, {other, 5, mine, 3}};
  for (const auto& c : cases) {
    status = c.status;
    HeadlessDesktop its(c.programFolder);
    its.StoredRegistry = MapRegistry(disk, [&](const MapRegistry::Content& content) {
      ++stores;
      if (status == 0) disk = content;
      return status;
    });
    Program program(its);
    program.Initialize();
    EXPECT_EQ(disk[kPath]["Path"].bytes, c.recorded);
    EXPECT_EQ(stores, c.stores);
    EXPECT_EQ(program.state.ThemeName, "Theme1");
    EXPECT_EQ(its.Boxes.empty(), c.programFolder == mine) << "a box tells of a missing theme only";
  }
}

TEST_F(StartUp, AnErrorOutsideAGameIsShownAndTheWindowStays) {
  WriteTheme(folder.Path(), CupTheme(1));
  desktop.Script = {[] { throw PathAccessError(); }, [] { throw std::bad_alloc(); }, [] { throw ProgramEnded{}; }};
  EXPECT_EQ(RunProgram(desktop), 0);
  EXPECT_EQ(desktop.Boxes,
            (std::vector<HeadlessDesktop::Box>{{"Error: 75\r\nPath/File access error", "Sorvex", BoxIcon::Critical},
                                               {"Error: 7\r\nOut of memory", "Sorvex", BoxIcon::Critical}}));
  EXPECT_TRUE(desktop.Script.empty()) << "the window was shown again until it was closed";
}

}  // namespace
}  // namespace sorvex::mdlRegistry
