// SPDX-License-Identifier: MIT
// The registry of systems that have none: the five functions of winreg.h over one file in Windows' `.reg` text form.
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "platform/desktop.h"

namespace sorvex {

/// `sorvex/registry.reg` under $XDG_DATA_HOME, or under $HOME/.local/share when that is not an absolute path; empty
/// (a file that never exists and cannot be made) when the user has no home either.
std::string DefaultRegistryPath();

/// The functions take and return what their namesakes of the registry do (RegOpenKeyExA and so on). Statuses: 0
/// ERROR_SUCCESS; 2 ERROR_FILE_NOT_FOUND, no such key or value; 5 ERROR_ACCESS_DENIED; 6 ERROR_INVALID_HANDLE; 87
/// ERROR_INVALID_PARAMETER, a name that the file cannot hold; 112 ERROR_DISK_FULL; 234 ERROR_MORE_DATA; 1450
/// ERROR_NO_SYSTEM_RESOURCES, the file would grow beyond 1 MiB.
///
/// The file is read afresh by every call, since another copy of the program may have written it; missing folders and
/// the file itself appear with the first key. Names are equal when they differ only in the case of A to Z, and keep
/// their first spelling. Lines that cannot be read count as absent and are kept. A file that is not ours to judge (it
/// exists but is no plain file, cannot be read, does not begin with REGEDIT4, or is longer than 1 MiB) is never
/// touched: every call that needs it is denied with 5. The same holds for opening a key with an access that asks for
/// writing in a file that cannot be written; a key that is missing is 2 there too.
class RegistryFile {
 public:
  explicit RegistryFile(std::string path) : path_(std::move(path)) {}

  Long Open(RegistryKey hive, const std::string& name, std::uint32_t access, RegistryKey& key);
  Long Create(RegistryKey hive, const std::string& name, std::uint32_t access, RegistryKey& key);
  Long Query(RegistryKey key, const std::string& name, std::uint32_t& type, void* data, std::uint32_t& size) const;
  Long Set(RegistryKey key, const std::string& name, std::uint32_t type, const void* data, std::uint32_t size);
  Long Close(RegistryKey key);

 private:
  struct OpenKey {
    std::string path;
    std::uint32_t access = 0;
  };

  const OpenKey* Find(RegistryKey key) const;

  std::string path_;
  std::map<RegistryKey, OpenKey> open_;
  RegistryKey lastHandle_ = 0;
};

}  // namespace sorvex
