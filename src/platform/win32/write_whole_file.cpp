// SPDX-License-Identifier: MIT
// Atomic replacement: writes a temporary file in the same folder, flushes it, and moves it over the old one.
#include "platform/win32/write_whole_file.h"

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>

#include "base/files.h"
#include "base/runtime_error.h"
#include "platform/win32/text.h"

namespace sorvex {
namespace {

namespace fs = std::filesystem;

RuntimeError ErrorOf(DWORD code) {
  switch (code) {
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL: return DiskFull();
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME: return PathNotFound();
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
    case ERROR_INVALID_NAME:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_CANT_RESOLVE_FILENAME: return PathAccessError();
    default: return DeviceError();
  }
}

// Throws the system's last error unless `succeeded`. Call it before anything else changes that error.
void Check(bool succeeded) {
  if (!succeeded) throw ErrorOf(::GetLastError());
}

class File {
 public:
  File(const fs::path& path, DWORD access, DWORD disposition, DWORD flags = FILE_ATTRIBUTE_NORMAL,
       DWORD share = FILE_SHARE_READ)
      : handle_(::CreateFileW(path.c_str(), access, share, nullptr, disposition, flags, nullptr)) {}
  File(File&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  File& operator=(File&&) = delete;
  ~File() { Close(); }

  bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE Handle() const { return handle_; }
  void Close() {
    if (IsOpen()) ::CloseHandle(std::exchange(handle_, INVALID_HANDLE_VALUE));
  }

  std::uint64_t Size() const {
    LARGE_INTEGER size{};
    Check(::GetFileSizeEx(handle_, &size) != 0);
    return static_cast<std::uint64_t>(size.QuadPart);
  }

  /// Sets the file's size in bytes, reserving disk space if it grows, and moves the file pointer to the start.
  void Resize(std::uint64_t size) const {
    Seek(size);
    Check(::SetEndOfFile(handle_) != 0);
    Seek(0);
  }

  void Write(std::string_view bytes) const {
    constexpr std::size_t kAtOnce = 1 << 20;
    while (!bytes.empty()) {
      DWORD written = 0;
      Check(::WriteFile(handle_, bytes.data(), static_cast<DWORD>(std::min(bytes.size(), kAtOnce)), &written,
                        nullptr) != 0);
      if (written == 0) throw DeviceError();
      bytes.remove_prefix(written);
    }
  }

  void Flush() const { Check(::FlushFileBuffers(handle_) != 0); }

 private:
  void Seek(std::uint64_t place) const {
    LARGE_INTEGER distance{};
    distance.QuadPart = static_cast<LONGLONG>(place);
    Check(::SetFilePointerEx(handle_, distance, nullptr, FILE_BEGIN) != 0);
  }

  HANDLE handle_;
};

// A new file that is deleted unless it is moved.
class TemporaryFile {
 public:
  /// nullopt, with the system's last error set, if no file can be created in `folder`.
  static std::optional<TemporaryFile> Create(const fs::path& folder) {
    for (;;) {
      fs::path path = folder / TemporaryName();
      File file(path, GENERIC_WRITE, CREATE_NEW);
      if (file.IsOpen()) return TemporaryFile(std::move(path), std::move(file));
      if (::GetLastError() != ERROR_FILE_EXISTS) return std::nullopt;
    }
  }
  TemporaryFile(TemporaryFile&& other) noexcept : path_(std::move(other.path_)), file_(std::move(other.file_)) {
    other.path_.clear();
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  TemporaryFile& operator=(TemporaryFile&&) = delete;
  ~TemporaryFile() {
    if (path_.empty()) return;
    file_.Close();
    ::DeleteFileW(path_.c_str());
  }

  const File& Content() const { return file_; }

  /// Moves the file over `target`; false, with the system's last error set, on failure.
  bool MoveTo(const fs::path& target) {
    file_.Close();
    // ReplaceFile preserves the old file's permissions, but needs an existing file and support by the file system. If
    // it fails midway, `target` does not exist any more. MoveFileEx handles all these cases.
    const bool moved =
        ::ReplaceFileW(target.c_str(), path_.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr) ||
        ::MoveFileExW(path_.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
    if (moved) path_.clear();
    return moved;
  }

 private:
  TemporaryFile(fs::path path, File file) : path_(std::move(path)), file_(std::move(file)) {}

  fs::path path_;
  File file_;
};

// A lock on the folder against other copies of the program: a file opened exclusively and deleted on close. If it
// cannot be created, or another process holds it for too long, the save continues without it: losing one of two times
// saved at the same moment is better than blocking the player.
class FolderLock {
 public:
  explicit FolderLock(const fs::path& folder) {
    constexpr DWORD kStep = 5;          // milliseconds
    constexpr DWORD kPatience = 10000;  // a save to a busy disk may take seconds
    for (DWORD waited = 0; !TryToLock(folder) && waited < kPatience; waited += kStep) {
      // ERROR_ACCESS_DENIED for an existing file: it is being deleted and cannot be created again yet.
      const DWORD error = ::GetLastError();
      const bool isThere = ::GetFileAttributesW((folder / kName).c_str()) != INVALID_FILE_ATTRIBUTES;
      if (error != ERROR_SHARING_VIOLATION && (error != ERROR_ACCESS_DENIED || !isThere)) return;
      ::Sleep(kStep);
    }
  }

 private:
  static constexpr char kName[] = ".sorvex-lock";

  bool TryToLock(const fs::path& folder) {
    constexpr DWORD kFlags = FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE;
    file_.emplace(folder / kName, GENERIC_WRITE | DELETE, OPEN_ALWAYS, kFlags, 0);
    return file_->IsOpen();
  }

  std::optional<File> file_;
};

// A move would replace a link itself, so it is resolved here. Other paths are unchanged: not every drive supports
// resolving them.
fs::path FollowLink(const fs::path& path) {
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return path;
  const File file(path, 0, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
  Check(file.IsOpen());
  std::wstring target(::GetFinalPathNameByHandleW(file.Handle(), nullptr, 0, FILE_NAME_NORMALIZED), L'\0');
  const DWORD length = ::GetFinalPathNameByHandleW(file.Handle(), target.data(), static_cast<DWORD>(target.size()),
                                                   FILE_NAME_NORMALIZED);
  Check(length != 0);
  target.resize(length);
  return target;
}

// Throws when `target` exists and this user may not write it.
bool ExistsWritable(const fs::path& target) {
  const DWORD attributes = ::GetFileAttributesW(target.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    Check(::GetLastError() == ERROR_FILE_NOT_FOUND);
    return false;
  }
  if ((attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) != 0) throw PathAccessError();
  Check(File(target, GENERIC_WRITE, OPEN_EXISTING).IsOpen());
  return true;
}

// Returns false if the existing file cannot be replaced and must be overwritten in place.
bool TryReplace(const fs::path& target, bool exists, std::string_view bytes) {
  std::optional<TemporaryFile> fresh = TemporaryFile::Create(target.parent_path());
  if (fresh) {
    fresh->Content().Write(bytes);
    fresh->Content().Flush();
    if (fresh->MoveTo(target)) {
      RemoveStaleTemporaries(FromWide(target.parent_path().wstring()));
      return true;
    }
  }
  const DWORD error = ::GetLastError();
  if (exists && (error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION)) return false;
  throw ErrorOf(error);
}

void OverwriteFile(const fs::path& target, std::string_view bytes) {
  const File file(target, GENERIC_WRITE, OPEN_EXISTING);
  Check(file.IsOpen());
  const std::uint64_t oldSize = file.Size();
  try {
    file.Resize(std::max<std::uint64_t>(oldSize, bytes.size()));
  } catch (const RuntimeError&) {
    file.Resize(oldSize);
    throw;
  }
  file.Write(bytes);
  file.Resize(bytes.size());
  file.Flush();
}

}  // namespace

void UpdateFile(const std::string& path, const FileContent& content) {
  const fs::path target = FollowLink(ToWide(path));
  if (target.filename().empty()) throw PathAccessError();
  const FolderLock lock(target.parent_path());
  const std::optional<std::string> bytes = content();
  if (!bytes) return;
  const bool exists = ExistsWritable(target);
  if (!TryReplace(target, exists, *bytes)) OverwriteFile(target, *bytes);
}

}  // namespace sorvex
