// SPDX-License-Identifier: MIT
// Writing a file so that a crash, a full disk or a second reader never meets half of it (POSIX).
#pragma once

#include <string>
#include <string_view>

#include "platform/desktop.h"

namespace sorvex {

/// Makes `bytes` the content of the file: afterwards it holds the old content or the new one, never part of one.
/// A link is followed to its file, which need not exist; permission bits, access list and owner stay where the system
/// lets them. What saves that were killed left in the folder over a minute ago is removed.
/// A writable file that cannot be replaced (nothing may be created in its folder, or it is mounted by itself) is
/// overwritten where it stands, after room for the new content was reserved.
/// Throws PathNotFound (76: no such folder), PathAccessError (75: not a plain file, or not writable; a file without any
/// write bit is not, even for root), DiskFull (61), DeviceError (57).
void WriteWholeFile(const std::string& path, std::string_view bytes);

/// The same with what `content` returns, nothing when it returns none, while the file's folder is locked against other
/// programs in this function. One that holds the lock for 10 seconds is not waited for, nor a folder that has no locks.
void UpdateFile(const std::string& path, const FileContent& content);

}  // namespace sorvex
