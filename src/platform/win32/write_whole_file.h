// SPDX-License-Identifier: MIT
// Atomic file replacement (Windows): a crash, a full disk or another reader never leaves or sees a partial file.
#pragma once

#include <string>

#include "platform/desktop.h"

namespace sorvex {

/// Calls `content` and atomically replaces the content of the file at `path` by what it returns, if anything, under a
/// lock that excludes other processes from this function for the same folder. Continues without the lock after waiting
/// 10 seconds. Symbolic links are followed; attributes and permissions are preserved. A writable file that cannot be
/// replaced (no file can be created in its folder) is overwritten in place, which is not atomic, after disk space for
/// the new content was reserved. Throws what `content` throws, PathNotFound (76: no such folder, or a dangling link),
/// PathAccessError (75: a folder, read-only, or in use), DiskFull (61), DeviceError (57).
void UpdateFile(const std::string& path, const FileContent& content);

}  // namespace sorvex
