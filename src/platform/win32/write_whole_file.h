// SPDX-License-Identifier: MIT
// Writing a file so that a crash, a full disk or a second reader never meets half of it (Windows).
#pragma once

#include <string>
#include <string_view>

namespace sorvex {

/// Makes `bytes` the content of the file: afterwards it holds the old content or the new one, never part of one.
/// A link is followed to its file; attributes and permissions stay. A writable file that cannot be replaced (nothing
/// may be created in its folder) is overwritten where it stands, after room for the new content was reserved. Throws
/// PathNotFound (76: no such folder, or a link that leads nowhere), PathAccessError (75: a folder, read-only, or in
/// use), DiskFull (61), DeviceError (57).
void WriteWholeFile(const std::string& path, std::string_view bytes);

}  // namespace sorvex
