// SPDX-License-Identifier: MIT
// The registry functions over a `.reg` file: its text, the statuses, and files that are not ours.
#include "platform/posix/registry_file.h"

#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace sorvex {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

constexpr std::uint32_t kReadWrite = 0x3F;
constexpr std::uint32_t kReadOnly = 0x19;
constexpr auto kSorvex = "Software\\Quennet\\Sorvex";
const std::string kHead = "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\Software\\Quennet\\Sorvex]\r\n";

using Stored = std::pair<std::uint32_t, std::string>;  // type and bytes

class ARegistryFile : public testing::Test {
 protected:
  /// The value as a program reads it that starts now.
  std::optional<Stored> Read(const std::string& name = "Path") const {
    RegistryFile registry(path);
    RegistryKey key = 0;
    Stored value;
    std::uint32_t size = 0;
    if (registry.Open(kLocalMachine, kSorvex, kReadOnly, key) != 0) return std::nullopt;
    if (registry.Query(key, name, value.first, nullptr, size) != 0) return std::nullopt;
    value.second.resize(size);
    EXPECT_EQ(registry.Query(key, name, value.first, value.second.data(), size), 0);
    return value;
  }

  Long Write(const std::string& name, const Stored& value) const {
    RegistryFile registry(path);
    RegistryKey key = 0;
    if (const Long status = registry.Create(kLocalMachine, kSorvex, kReadWrite, key); status != 0) return status;
    return registry.Set(key, name, value.first, value.second.data(), static_cast<std::uint32_t>(value.second.size()));
  }

  const TempFolder folder;
  const fs::path path = folder.Path() / "data/sorvex/registry.reg";
  RegistryKey key = 0;
};

TEST_F(ARegistryFile, HoldsEachValueAsWindowsWouldWriteIt) {
  const struct {
    std::string name;
    Stored value;
    std::string line;
  } cases[] = {
      {"Path", {1, "C:\\say \"hi\"\0"s}, R"("Path"="C:\\say \"hi\"")"},
      {"Path", {1, "a\nb\0"s}, R"("Path"=hex(1):61,0a,62,00)"},
      {"a\"\\b", {4, "\x2a\0\0\0"s}, R"("a\"\\b"=dword:0000002a)"},
      {"Path", {4, "\x01\x02"}, R"("Path"=hex(4):01,02)"},
      {"", {3, "\xff"}, "@=hex:ff"},
  };
  for (const auto& [name, value, line] : cases) {
    fs::remove(path);
    EXPECT_EQ(Write(name, value), 0) << line;
    EXPECT_EQ(ReadWholeFile(path), kHead + line + "\r\n");
    EXPECT_EQ(Read(name), value) << line;
  }
  EXPECT_EQ(fs::status(path.parent_path()).permissions(), fs::perms::owner_all) << "the folder is the user's alone";
}

TEST_F(ARegistryFile, HoldsNoValueWhereALineIsNotWellFormed) {
  const std::pair<std::string, Stored> readable[] = {
      {"  \"pATH\"=\"/opt\"  \r\n", {1, "/opt\0"s}},
      {"\"Path\"=hex(7):61,00,\\\r\n  62,00,\\\r\n  00\r\n", {7, "a\0b\0\0"s}},
      {"\"Path\"=\"1\"\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\quennet\\Sorvex]\n\"Path\"=\"2\"\n", {1, "2\0"s}},
      {"\"Broken\"=hex:1,\\\n\"Path\"=\"1\"\n", {1, "1\0"s}},
  };
  for (const auto& [lines, value] : readable) {
    WriteFile(path, kHead + lines);
    EXPECT_EQ(Read(), value) << lines;
  }
  for (const char* line : {"; \"Path\"=\"1\"", "\"Path\"=\"1\\", "\"Path\"=\"\\n\"", "\"Path\"=\"1\" 2",
                           "\"Path\"=dword:100000000", "\"Path\"=hex:100", "\"Path\"=hex(:1", "\"Path\"=hex:1,\\"}) {
    WriteFile(path, kHead + line);
    EXPECT_EQ(Read(), std::nullopt) << line;
  }
}

TEST_F(ARegistryFile, KeepsForeignLinesAndFirstSpellings) {
  WriteFile(path,
            "REGEDIT4\n; mine\n[-HKEY_USERS\\x]\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Other]\n\"L\"=hex(7):61,\\\n  00\n"
            "\"broken\"=\"\n\"PATH\"=\"old\"\n");
  RegistryFile registry(path);
  ASSERT_EQ(registry.Create(kLocalMachine, "software\\OTHER\\", kReadWrite, key), 0);
  EXPECT_EQ(registry.Set(key, "path", 1, "new", 4), 0);
  RegistryKey inner = 0;
  ASSERT_EQ(registry.Create(key, "Inner\\most", kReadWrite, inner), 0);
  EXPECT_EQ(registry.Set(inner, "n", 1, "", 1), 0);
  EXPECT_EQ(ReadWholeFile(path),
            "REGEDIT4\r\n; mine\r\n[-HKEY_USERS\\x]\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Other]\r\n"
            "\"L\"=hex(7):61,\\\r\n  00\r\n\"broken\"=\"\r\n\"PATH\"=\"new\"\r\n\r\n"
            "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Other\\Inner\\most]\r\n\"n\"=\"\"\r\n");
  EXPECT_EQ(registry.Open(kLocalMachine, "Software\\Other\\Inner", kReadOnly, key), 0) << "parents come along";
  EXPECT_EQ(registry.Open(kLocalMachine, "Software\\Oth", kReadOnly, key), 2) << "a prefix of a name is no parent";
}

TEST_F(ARegistryFile, ReturnsTheStatusesOfTheRealFunctions) {
  ASSERT_EQ(Write("Path", {1, "four"}), 0);
  RegistryFile registry(path);
  std::uint32_t type = 0;
  std::uint32_t size = 3;
  char buffer[8] = "unused";
  ASSERT_EQ(registry.Open(kLocalMachine, kSorvex, kReadOnly, key), 0);
  EXPECT_EQ(registry.Query(key, "path", type, buffer, size), 234);
  EXPECT_EQ(size, 4U);
  EXPECT_EQ(buffer, "unused"s);
  EXPECT_EQ(registry.Set(key, "Path", 1, "x", 1), 5) << "opened without KEY_SET_VALUE";
  EXPECT_EQ(registry.Query(0, "Path", type, buffer, size), 6) << "the key of an opening that failed";
  EXPECT_EQ(registry.Set(0, "Path", 1, "x", 1), 6);
  EXPECT_EQ(Write("a\nb", {1, ""}), 87);
  EXPECT_EQ(registry.Create(kLocalMachine, "a\n[b]", kReadWrite, key), 87);
  EXPECT_EQ(Write("Path", {3, std::string(400000, 'x')}), 1450);
  EXPECT_EQ(Read(), (Stored{1, "four"})) << "nothing of that was stored";
}

TEST_F(ARegistryFile, IsLeftAloneWhenItCannotBeJudgedOrWritten) {
  for (const std::string& text : {"\n"s, "\xFF\xFER\0E\0"s, "REGEDIT\n" + kHead, kHead + std::string(2 << 20, '\n')}) {
    WriteFile(path, text);
    EXPECT_EQ(Write("Path", {1, "new"}), 5);
    EXPECT_EQ(ReadWholeFile(path), text);
  }
  WriteFile(path, "");
  EXPECT_EQ(Write("Path", {1, "old"}), 0) << "an empty file holds nothing to lose";
  for (const fs::path& nowhere : {path / "registry.reg", fs::path()})
    EXPECT_EQ(RegistryFile(nowhere).Create(kLocalMachine, kSorvex, kReadWrite, key), 5);
}

TEST(DefaultRegistryPath, FollowsTheBaseDirectoryRules) {
  const auto pathFor = [](const char* data, const char* home) {
    ::setenv("XDG_DATA_HOME", data, 1);
    ::setenv("HOME", home, 1);
    return DefaultRegistryPath();
  };
  EXPECT_EQ(pathFor("/data", "/home/p"), "/data/sorvex/registry.reg");
  EXPECT_EQ(pathFor("data", "/home/p"), "/home/p/.local/share/sorvex/registry.reg");
  EXPECT_EQ(pathFor("", ""), "");
}

}  // namespace
}  // namespace sorvex
