// SPDX-License-Identifier: MIT
// Writing what the kit makes.
#pragma once

#include <string>
#include <string_view>

namespace sorvex {

/// Writes the file (its path is UTF-8), in place of one that is there, and makes the folders above it. Throws
/// PathAccessError (75), with the path, when that cannot be done.
void SaveFile(const std::string& path, std::string_view bytes);
/// Removes the file, if there is one. Throws as SaveFile does.
void RemoveFile(const std::string& path);

}  // namespace sorvex
