// SPDX-License-Identifier: MIT
// Each call reads the file, looks or changes, and writes it back whole.
#include "platform/posix/registry_file.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string_view>
#include <utility>

#include "base/files.h"
#include "base/runtime_error.h"
#include "platform/posix/registry_text.h"
#include "platform/posix/write_whole_file.h"

namespace sorvex {
namespace {

namespace fs = std::filesystem;

constexpr Long kSuccess = 0;
constexpr Long kFileNotFound = 2;
constexpr Long kAccessDenied = 5;
constexpr Long kInvalidHandle = 6;
constexpr Long kInvalidParameter = 87;
constexpr Long kDiskFull = 112;
constexpr Long kMoreData = 234;
constexpr Long kNoSystemResources = 1450;

constexpr std::uint32_t kQueryValue = 0x01;
constexpr std::uint32_t kSetValue = 0x02;
constexpr std::uint32_t kWriteAccess = 0x26;  // KEY_SET_VALUE, KEY_CREATE_SUB_KEY, KEY_CREATE_LINK
constexpr std::uint32_t kFullAccess = 0x3F;

constexpr std::size_t kLargestFile = 1 << 20;

bool Exists(const std::string& path) {
  std::error_code error;
  return fs::status(path, error).type() != fs::file_type::not_found;
}

// Empty when there is no file yet; nullopt when there is one that must not be touched.
std::optional<RegistryText> Load(const std::string& path) {
  if (!Exists(path)) return RegistryText();
  const std::optional<std::string> text = ReadFile(path, kLargestFile);
  if (!text) return std::nullopt;
  return text->empty() ? RegistryText() : RegistryText::Parse(*text);
}

void MakeFolders(const fs::path& folder) {
  // For the user alone, as the XDG base directory rules ask. One that cannot be made shows when the file is written.
  fs::path made;
  for (const fs::path& part : folder) {
    made /= part;
    ::mkdir(made.c_str(), S_IRWXU);
  }
}

Long Save(const std::string& path, const RegistryText& registry) {
  const std::string text = registry.Text();
  if (text.size() > kLargestFile) return kNoSystemResources;
  try {
    MakeFolders(fs::path(path).parent_path());
    WriteWholeFile(path, text);
    return kSuccess;
  } catch (const RuntimeError& error) {
    return error.Number() == DiskFull().Number() ? kDiskFull : kAccessDenied;
  }
}

bool IsKeyName(std::string_view name) {
  return IsWritableName(name) && !name.starts_with('\\') && name.find("\\\\") == std::string_view::npos;
}

std::string Joined(const std::string& base, std::string_view name) {
  if (name.ends_with('\\')) name.remove_suffix(1);
  return name.empty() ? base : base + '\\' + std::string(name);
}

std::string AbsoluteFolder(const char* variable) {
  const char* folder = std::getenv(variable);
  return folder != nullptr && fs::path(folder).is_absolute() ? folder : "";
}

}  // namespace

std::string DefaultRegistryPath() {
  std::string folder = AbsoluteFolder("XDG_DATA_HOME");
  if (folder.empty()) {
    const std::string home = AbsoluteFolder("HOME");
    if (home.empty()) return "";
    folder = JoinPath(home, ".local/share");
  }
  return JoinPath(folder, "sorvex/registry.reg");
}

const RegistryFile::OpenKey* RegistryFile::Find(RegistryKey key) const {
  static const OpenKey localMachine{"HKEY_LOCAL_MACHINE", kFullAccess};
  if (key == kLocalMachine) return &localMachine;
  const auto found = open_.find(key);
  return found == open_.end() ? nullptr : &found->second;
}

Long RegistryFile::Open(RegistryKey hive, const std::string& name, std::uint32_t access, RegistryKey& key) {
  const OpenKey* base = Find(hive);
  if (base == nullptr) return kInvalidHandle;
  const std::string path = Joined(base->path, name);
  const std::optional<RegistryText> registry = Load(path_);
  if (!registry) return kAccessDenied;
  if (!registry->HasKey(path)) return kFileNotFound;
  if ((access & kWriteAccess) != 0 && Exists(path_) && !IsWritableFile(path_)) return kAccessDenied;
  key = ++lastHandle_;
  open_[key] = {path, access};
  return kSuccess;
}

Long RegistryFile::Create(RegistryKey hive, const std::string& name, std::uint32_t access, RegistryKey& key) {
  const OpenKey* base = Find(hive);
  if (base == nullptr) return kInvalidHandle;
  if (!IsKeyName(name)) return kInvalidParameter;
  const std::string path = Joined(base->path, name);
  std::optional<RegistryText> registry = Load(path_);
  if (!registry) return kAccessDenied;
  if (!registry->HasKey(path)) {
    registry->AddKey(path);
    if (const Long status = Save(path_, *registry); status != kSuccess) return status;
  }
  return Open(hive, name, access, key);
}

Long RegistryFile::Query(RegistryKey key, const std::string& name, std::uint32_t& type, void* data,
                         std::uint32_t& size) const {
  const OpenKey* open = Find(key);
  if (open == nullptr) return kInvalidHandle;
  if ((open->access & kQueryValue) == 0) return kAccessDenied;
  const std::optional<RegistryText> registry = Load(path_);
  if (!registry) return kAccessDenied;
  const RegistryValue* value = registry->FindValue(open->path, name);
  if (value == nullptr) return kFileNotFound;
  const std::string& bytes = value->bytes;
  const std::uint32_t room = std::exchange(size, static_cast<std::uint32_t>(bytes.size()));
  type = value->type;
  if (data == nullptr) return kSuccess;
  if (room < bytes.size()) return kMoreData;
  std::ranges::copy(bytes, static_cast<char*>(data));
  return kSuccess;
}

Long RegistryFile::Set(RegistryKey key, const std::string& name, std::uint32_t type, const void* data,
                       std::uint32_t size) {
  const OpenKey* open = Find(key);
  if (open == nullptr) return kInvalidHandle;
  if ((open->access & kSetValue) == 0) return kAccessDenied;
  if (!IsWritableName(name)) return kInvalidParameter;
  std::optional<RegistryText> registry = Load(path_);
  if (!registry) return kAccessDenied;
  const char* first = static_cast<const char*>(data);
  const std::string bytes(first, first + size);
  // Waiting for the disk is spared at every start but the first.
  const RegistryValue* before = registry->FindValue(open->path, name);
  if (before != nullptr && before->type == type && before->bytes == bytes) return kSuccess;
  registry->PutValue(open->path, {name, type, bytes});
  return Save(path_, *registry);
}

Long RegistryFile::Close(RegistryKey key) {
  return key == kLocalMachine || open_.erase(key) != 0 ? kSuccess : kInvalidHandle;
}

}  // namespace sorvex
