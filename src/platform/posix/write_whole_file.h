// SPDX-License-Identifier: MIT
// Atomic file replacement (POSIX): a crash, a full disk or another reader never leaves or sees a partial file.
#pragma once

#include <string>
#include <string_view>

#include "platform/desktop.h"

namespace sorvex {

/// Replaces the content of the file at `path` by `bytes` atomically. Symbolic links are followed, also to a file that
/// does not exist yet. Permission bits, access control list and owner are preserved where the system allows. Temporary
/// files that killed saves left in the folder over a minute ago are removed. A writable file that cannot be replaced
/// (its folder is not writable, or it is a mount point) is overwritten in place, which is not atomic, after disk space
/// for the new content was reserved. Throws PathNotFound (76: no such folder), PathAccessError (75: not a regular file,
/// or not writable; a file without any write bit is not, even for root), DiskFull (61), DeviceError (57).
void WriteWholeFile(const std::string& path, std::string_view bytes);

/// Calls `content` and writes what it returns, if anything, under a lock that excludes other processes from this
/// function for the same folder. Continues without the lock after waiting 10 seconds, or if the file system has no
/// locks.
void UpdateFile(const std::string& path, const FileContent& content);

}  // namespace sorvex
