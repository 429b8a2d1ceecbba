// SPDX-License-Identifier: MIT
// What becomes of values in the registry of any system, by the module through which the program uses it.
#pragma once

#include <gtest/gtest.h>

#include "startup/mdl_registry.h"

namespace sorvex {

/// `key` must not exist; it is left with a value that is no text and no number.
inline void ExpectTypedValues(Registry& registry, RegistryKey hive, const std::string& key) {
  using namespace mdlRegistry;
  using namespace std::string_literals;
  const auto read = [&](const char* name = "Path") { return ReadRegistryValue(registry, hive, key, name); };
  WriteRegistryValue(registry, hive, key, "Path", "/opt"s, kRegSz);
  RegistryKey open = 0;
  EXPECT_EQ(registry.Open(hive, key, 0x3F, open), 2) << "only CreateRegistryKey makes the key";
  EXPECT_EQ(read(), Variant());
  for (int i = 0; i < 2; ++i) CreateRegistryKey(registry, hive, key);
  EXPECT_EQ(read(), Variant()) << "no value";
  ASSERT_EQ(registry.Open(hive, key, 0x3F, open), 0);
  const struct {
    Variant value;
    std::uint32_t type;
    std::pair<std::uint32_t, std::string> stored;
    Variant readBack;
  } cases[] = {{"/opt/sor"s, kRegSz, {1, "/opt/sor"}, "/opt/sor"s},  // without a terminating zero
               {Variant(), kRegSz, {1, ""}, ""s},
               {-12, kRegSz, {1, "-12"}, "-12"s},
               {-2, kRegDword, {4, "\xFE\xFF\xFF\xFF"}, -2},
               {" 2.5 "s, kRegDword, {4, "\2\0\0\0"s}, 2},
               {"2147483648"s, kRegDword, {4, "\2\0\0\0"s}, 2},  // no such number: nothing is written
               {"text"s, 3, {4, "\2\0\0\0"s}, 2}};               // no such type
  for (const auto& c : cases) {
    WriteRegistryValue(registry, hive, key, "Path", c.value, c.type);
    std::uint32_t type = 0;
    char bytes[64];
    std::uint32_t size = sizeof bytes;
    EXPECT_EQ(registry.Query(open, "PATH", type, bytes, size), 0);
    EXPECT_EQ(std::pair(type, std::string(bytes, size)), c.stored);
    EXPECT_EQ(read(), c.readBack) << c.stored.second;
    size = 3;
    EXPECT_EQ(registry.Query(open, "Path", type, bytes, size), c.stored.second.size() > 3 ? 234 : 0) << "its room";
  }
  // What another program stores: nothing is trimmed, other types are left alone.
  const std::tuple<std::uint32_t, std::string, Variant> others[] = {
      {1, "four\0"s, "four\0"s}, {3, "/", Variant()}, {2, "%PATH%\0"s, Variant()}};
  for (const auto& [type, bytes, value] : others) {
    EXPECT_EQ(registry.Set(open, "Path", type, bytes.data(), static_cast<std::uint32_t>(bytes.size())), 0);
    EXPECT_EQ(read(), value) << type;
  }
  EXPECT_EQ(read("none"), Variant());
  EXPECT_EQ(registry.Close(open), 0);
  ASSERT_EQ(registry.Open(hive, key, 0x20019, open), 0);
  EXPECT_EQ(registry.Set(open, "Path", kRegSz, "x", 1), 5) << "opened for reading";
  EXPECT_EQ(registry.Close(open), 0);
  EXPECT_EQ(registry.Close(0), 6);
}

}  // namespace sorvex
