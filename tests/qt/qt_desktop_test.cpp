// SPDX-License-Identifier: MIT
// The desktop on Linux by itself: what reaches it from outside the game.
#include <gtest/gtest.h>

#include <QTimer>
#include <csignal>
#include <cstdlib>
#include <memory>
#include <new>

#include "platform/desktop.h"
#include "startup/mdl_registry.h"
#include "support/temp_folder.h"

namespace sorvex {
namespace {

using namespace std::string_literals;

std::unique_ptr<Desktop> MakeUnseenDesktop() {
  static char name[] = "test";
  static char* arguments[] = {name, nullptr};
  static int count = 1;
  ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  return MakeDesktop(count, arguments);
}

TEST(QtDesktop, ThrowsWhatLeavesOneEventsDeliveryOnceAllEventsAreDelivered) {
  const auto desktop = MakeUnseenDesktop();
  bool delivered = false;
  QTimer::singleShot(0, [] { throw std::bad_alloc(); });
  QTimer::singleShot(0, [&] { delivered = true; });
  EXPECT_THROW(desktop->DeliverEvents(0), std::bad_alloc);
  EXPECT_TRUE(delivered) << "the toolkit's own frames were not torn";
}

TEST(QtDesktop, IsEndedBySignalsButNotByThoseThatWereIgnored) {
  std::signal(SIGHUP, SIG_IGN);
  {
    const auto desktop = MakeUnseenDesktop();
    std::raise(SIGHUP);
    EXPECT_NO_THROW(desktop->DeliverEvents(1));
    std::raise(SIGTERM);
    EXPECT_THROW(desktop->DeliverEvents(1000), ProgramEnded);
  }
  EXPECT_EQ(std::signal(SIGHUP, SIG_DFL), SIG_IGN) << "left as it was";
  EXPECT_EQ(std::signal(SIGTERM, SIG_DFL), SIG_DFL);
}

TEST(QtDesktop, KeepsTheRegistryInAFileOfItsOwnAndTouchesNoOther) {
  const TempFolder folder;
  ::setenv("XDG_DATA_HOME", folder.Path().c_str(), 1);
  const std::filesystem::path file = folder.Path() / "sorvex/registry.ini";
  const auto record = [](const std::string& path) {
    const auto desktop = MakeUnseenDesktop();
    Registry& registry = desktop->SystemRegistry();
    mdlRegistry::CreateRegistryKey(registry, kLocalMachine, "Software\\Sorvex");
    const auto before = mdlRegistry::ReadRegistryValue(registry, kLocalMachine, "Software\\Sorvex", "Path");
    mdlRegistry::WriteRegistryValue(registry, kLocalMachine, "Software\\Sorvex", "Path", path, kRegSz);
    return before;
  };
  WriteFile(file, "");
  std::filesystem::create_directory(folder.Path() / "sorvex/registry.ini.lock");  // the toolkit's; it would wait for it
  EXPECT_EQ(record("/opt/\xC3\xA9"), mdlRegistry::Variant());
  EXPECT_EQ(record("/moved"), mdlRegistry::Variant("/opt/\xC3"s)) << "as many bytes as characters";
  const std::filesystem::file_time_type longAgo{};
  std::filesystem::last_write_time(file, longAgo);
  record("/moved");
  EXPECT_EQ(std::filesystem::last_write_time(file), longAgo) << "written although nothing changed";
  for (const char* notOurs : {"hello\nworld\n[mine]\na = 1, 2\n; note", "\x01\xFF no text"}) {
    WriteFile(file, notOurs);
    record("/elsewhere");
    EXPECT_EQ(ReadWholeFile(file), notOurs);
  }
}

}  // namespace
}  // namespace sorvex
