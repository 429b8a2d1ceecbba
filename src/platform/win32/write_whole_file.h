// SPDX-License-Identifier: MIT
// Writing a file so that a crash, a full disk or a second reader never meets half of it (Windows).
#pragma once

#include <string>

#include "platform/desktop.h"

namespace sorvex {

/// Makes what `content` returns the content of the file, nothing when it returns none: afterwards the file holds the
/// old content or the new one, never part of one. Meanwhile the file's folder is locked against other programs in this
/// function; one that holds the lock for 10 seconds is not waited for.
/// A link is followed to its file; attributes and permissions stay. A writable file that cannot be replaced (nothing
/// may be created in its folder) is overwritten where it stands, after room for the new content was reserved. Throws
/// what `content` throws, PathNotFound (76: no such folder, or a link that leads nowhere), PathAccessError (75: a
/// folder, read-only, or in use), DiskFull (61), DeviceError (57).
void UpdateFile(const std::string& path, const FileContent& content);

}  // namespace sorvex
