// SPDX-License-Identifier: MIT
// Writing what the kit makes.
#pragma once

#include <string>
#include <string_view>

namespace sorvex {

/// Writes the file (its path is UTF-8), in place of one that is there, and makes the folders above it. Throws
/// PathAccessError (75) when that cannot be done.
void SaveFile(const std::string& path, std::string_view bytes);

}  // namespace sorvex
