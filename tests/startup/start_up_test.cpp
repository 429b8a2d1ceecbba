// SPDX-License-Identifier: MIT
// The registry module over the registry of a system that has none, and what start-up leaves there.
#include <gtest/gtest.h>

#include "startup/mdl_registry.h"
#include "support/registry_values.h"
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

  const TempFolder folder;
  HeadlessDesktop desktop{folder.Path().string()};
  MapRegistry& registry = desktop.StoredRegistry;
};

TEST_F(StartUp, StoresValuesAsTheirTypeAsks) {
  ExpectTypedValues(registry, kLocalMachine, kSorvex);
  WriteRegistryValue(registry, kLocalMachine, kSorvex, "Path", "\xC3\xBC!\xF0\x9F\x8E\xAF"s, kRegSz);
  EXPECT_EQ(ReadRegistryValue(registry, kLocalMachine, kSorvex, "Path"), Variant("\xC3\xBC!\xF0"s)) << "4 characters";
}

TEST_F(StartUp, FindsKeysWhateverTheCaseAndRefusesWhatWasNotAskedFor) {
  CreateRegistryKey(registry, kLocalMachine, "software\\QUENNET\\Sorvex\\");
  EXPECT_EQ(registry.content.count(kPath), 1U);
  RegistryKey key = 0;
  for (const auto& [name, status] :
       {std::pair{"Software", 0}, {"Software\\Quennet", 0}, {"Soft", 2}, {kSorvex, 0}, {"Software\\Quennet\\Sor", 2}}) {
    EXPECT_EQ(registry.Open(kLocalMachine, name, 0x19, key), status) << name;
    if (status == 0) registry.Close(key);
  }
  EXPECT_EQ(registry.Create(kLocalMachine, "a\\\\b", 0x3F, key), 87);
  EXPECT_EQ(registry.Open(77, kSorvex, 0x3F, key), 6);
}

TEST_F(StartUp, RecordsTheFolderOfTheCopyThatRanLastAndStoresOnlyWhatChanges) {
  WriteTheme(folder.Path(), CupTheme(1));
  const std::string mine = folder.Path().string();
  const std::string other = mine + "/moved";
  int stores = 0;
  Long status = 0;
  MapRegistry::Content disk;
  const std::tuple<std::string, Long, std::string, int> cases[] = {
      // where, the status of storing, what is recorded then
      {other, 0, other, 1},
      {mine, 0, mine, 2},
      {mine, 0, mine, 2},
      {other, 5, mine, 3}};
  for (const auto& [programFolder, itsStatus, recorded, storesThen] : cases) {
    status = itsStatus;
    HeadlessDesktop its(programFolder);
    its.StoredRegistry = MapRegistry(disk, [&](const MapRegistry::Content& content) {
      ++stores;
      if (status == 0) disk = content;
      return status;
    });
    Program program(its);
    program.Initialize();
    EXPECT_EQ(disk[kPath]["Path"].bytes, recorded);
    EXPECT_EQ(stores, storesThen);
    EXPECT_EQ(program.state.ThemeName, "Theme1");
    EXPECT_EQ(its.Boxes.empty(), programFolder == mine) << "a box tells of a missing theme only";
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
