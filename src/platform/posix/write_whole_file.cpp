// SPDX-License-Identifier: MIT
// Atomic replacement: writes a temporary file in the same folder, flushes it, and renames it over the old one.
#include "platform/posix/write_whole_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <thread>
#include <tuple>

#include "base/files.h"
#include "base/runtime_error.h"

namespace sorvex {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kAnyWriteBit = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr mode_t kPermissionBits = 07777;
constexpr int kMostLinks = 40;  // Linux's own limit for a chain of symbolic links

RuntimeError ErrorOf(int code) {
  switch (code) {
    case ENOSPC:
    case EDQUOT: return DiskFull();
    case ENOENT:
    case ENOTDIR: return PathNotFound();
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case ELOOP:
    case ENAMETOOLONG:
    case ETXTBSY: return PathAccessError();
    default: return DeviceError();
  }
}

template <class Call>
auto Retried(Call call) {
  auto result = call();
  while (result == -1 && errno == EINTR) result = call();
  return result;
}

void Check(int result) {
  if (result != 0) throw ErrorOf(errno);
}

class File {
 public:
  File(const fs::path& path, int flags, mode_t mode = 0)
      : descriptor_(Retried([&] { return ::open(path.c_str(), flags | O_CLOEXEC, mode); })) {}
  File(File&& other) noexcept : descriptor_(other.descriptor_) { other.descriptor_ = -1; }
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  File& operator=(File&&) = delete;
  ~File() {
    if (IsOpen()) ::close(descriptor_);
  }

  bool IsOpen() const { return descriptor_ != -1; }
  int Descriptor() const { return descriptor_; }

  void WriteFromStart(std::string_view bytes) const {
    for (off_t at = 0; !bytes.empty();) {
      const ssize_t written = Retried([&] { return ::pwrite(descriptor_, bytes.data(), bytes.size(), at); });
      if (written <= 0) throw written == 0 ? DeviceError() : ErrorOf(errno);
      at += written;
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
  }

  void Flush() const {
    Check(Retried([&] { return ::fsync(descriptor_); }));
  }

 private:
  int descriptor_;
};

// A new file that is deleted unless it is renamed.
class TemporaryFile {
 public:
  /// nullopt, with errno set, if no file can be created in `folder`.
  static std::optional<TemporaryFile> Create(const fs::path& folder, mode_t mode) {
    for (;;) {
      fs::path path = folder / TemporaryName();
      File file(path, O_WRONLY | O_CREAT | O_EXCL, mode);
      if (file.IsOpen()) return TemporaryFile(std::move(path), std::move(file));
      if (errno != EEXIST) return std::nullopt;
    }
  }
  TemporaryFile(TemporaryFile&& other) noexcept : path_(std::move(other.path_)), file_(std::move(other.file_)) {
    other.path_.clear();
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  TemporaryFile& operator=(TemporaryFile&&) = delete;
  ~TemporaryFile() {
    if (!path_.empty()) ::unlink(path_.c_str());
  }

  const File& Content() const { return file_; }

  /// Renames the file over `target`; false, with errno set, on failure.
  bool Rename(const fs::path& target) {
    if (::rename(path_.c_str(), target.c_str()) != 0) return false;
    path_.clear();
    return true;
  }

 private:
  TemporaryFile(fs::path path, File file) : path_(std::move(path)), file_(std::move(file)) {}

  fs::path path_;
  File file_;
};

fs::path FolderOf(const fs::path& path) { return path.has_parent_path() ? path.parent_path() : fs::path("."); }

// A lock on the folder against other copies of the program: flock(2) on the folder itself, which leaves no file behind.
// If the file system has no locks, or another process holds it for too long, the save continues without it: losing one
// of two times saved at the same moment is better than blocking the player.
class FolderLock {
 public:
  explicit FolderLock(const fs::path& folder) : folder_(folder, O_RDONLY | O_DIRECTORY) {
    using namespace std::chrono_literals;
    constexpr auto kPatience = 10s;  // a save to a busy disk may take seconds
    const auto start = std::chrono::steady_clock::now();
    while (folder_.IsOpen() && ::flock(folder_.Descriptor(), LOCK_EX | LOCK_NB) != 0 &&
           (errno == EWOULDBLOCK || errno == EINTR) && std::chrono::steady_clock::now() - start < kPatience)
      std::this_thread::sleep_for(5ms);
  }

 private:
  File folder_;  // closing it releases the lock
};

// rename() would replace a symbolic link itself, so the last path component is resolved here.
fs::path FollowLinks(fs::path path) {
  for (int links = 0; links <= kMostLinks; ++links) {
    std::error_code error;
    const fs::path target = fs::read_symlink(path, error);
    if (error) return path;
    path = path.parent_path() / target;
  }
  throw PathAccessError();
}

std::optional<struct stat> Status(const fs::path& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) == 0) return status;
  if (errno == ENOENT) return std::nullopt;
  throw ErrorOf(errno);
}

// Copies the access control list (acl(5)) of `from`.
void CopyAccessList(const fs::path& from, const File& to) {
  constexpr char kAttribute[] = "system.posix_acl_access";
  std::array<char, 1 << 16> list;
  const ssize_t size = ::getxattr(from.c_str(), kAttribute, list.data(), list.size());
  if (size < 0 && errno == ENODATA)
    std::ignore = ::fremovexattr(to.Descriptor(), kAttribute);  // inherited from the folder
  if (size > 0) std::ignore = ::fsetxattr(to.Descriptor(), kAttribute, list.data(), static_cast<std::size_t>(size), 0);
}

// Failures are ignored: only root may change the owner, other users only to one of their groups, and some file systems
// have no permissions.
void CopyOwnerAndMode(const File& file, const fs::path& path, const struct stat& old) {
  if (::fchown(file.Descriptor(), old.st_uid, old.st_gid) != 0)
    std::ignore = ::fchown(file.Descriptor(), static_cast<uid_t>(-1), old.st_gid);
  std::ignore = ::fchmod(file.Descriptor(), old.st_mode & kPermissionBits);
  CopyAccessList(path, file);
}

void FlushFolder(const fs::path& folder) {
  // Failures are ignored: the file is replaced already, and after a power cut either the old or the new one is there.
  const File handle(folder, O_RDONLY | O_DIRECTORY);
  if (handle.IsOpen()) ::fsync(handle.Descriptor());
}

bool MeansOverwrite(int error) { return error == EACCES || error == EPERM || error == EROFS || error == EBUSY; }

// Returns false if the file `old` cannot be replaced and must be overwritten in place.
bool ReplaceFile(const fs::path& target, const std::optional<struct stat>& old, std::string_view bytes) {
  const fs::path folder = FolderOf(target);
  // Created with the old file's permission bits, because some mounts refuse to change them later; without an old file
  // the user's umask applies.
  const mode_t anybody = S_IRUSR | S_IRGRP | S_IROTH | kAnyWriteBit;
  const mode_t umaskBefore = ::umask(0);
  std::optional<TemporaryFile> fresh =
      TemporaryFile::Create(folder, old ? old->st_mode & kPermissionBits : anybody & ~umaskBefore);
  const int error = errno;
  ::umask(umaskBefore);
  errno = error;
  if (fresh) {
    fresh->Content().WriteFromStart(bytes);
    if (old) CopyOwnerAndMode(fresh->Content(), target, *old);
    fresh->Content().Flush();
    if (fresh->Rename(target)) {
      FlushFolder(folder);
      RemoveStaleTemporaries(folder.string());
      return true;
    }
  }
  if (old && MeansOverwrite(errno)) return false;
  throw ErrorOf(errno);
}

void OverwriteFile(const fs::path& target, off_t oldSize, std::string_view bytes) {
  const File file(target, O_WRONLY | O_NONBLOCK);  // not to wait at a pipe that was put there
  if (!file.IsOpen()) throw ErrorOf(errno);
  const auto newSize = static_cast<off_t>(bytes.size());
  if (newSize > oldSize) {
    int error = EINTR;
    while (error == EINTR) error = ::posix_fallocate(file.Descriptor(), oldSize, newSize - oldSize);
    if (error != 0) {
      std::ignore = ::ftruncate(file.Descriptor(), oldSize);
      throw ErrorOf(error);
    }
  }
  file.WriteFromStart(bytes);
  Check(Retried([&] { return ::ftruncate(file.Descriptor(), newSize); }));
  file.Flush();
}

bool IsWritable(const fs::path& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && (status.st_mode & kAnyWriteBit) != 0 &&
         ::access(path.c_str(), W_OK) == 0;
}

void WriteTarget(const fs::path& target, std::string_view bytes) {
  if (target.filename().empty()) throw PathAccessError();
  const std::optional<struct stat> old = Status(target);
  if (old && !IsWritable(target)) throw PathAccessError();
  if (!ReplaceFile(target, old, bytes)) OverwriteFile(target, old->st_size, bytes);
}

}  // namespace

void WriteWholeFile(const std::string& path, std::string_view bytes) { WriteTarget(FollowLinks(path), bytes); }

void UpdateFile(const std::string& path, const FileContent& content) {
  const fs::path target = FollowLinks(path);
  const FolderLock lock(FolderOf(target));
  if (const std::optional<std::string> bytes = content()) WriteTarget(target, *bytes);
}

}  // namespace sorvex
