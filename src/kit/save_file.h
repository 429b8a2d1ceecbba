// SPDX-License-Identifier: MIT
// Writing what the kit makes.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace sorvex {

/// The path of UTF-8 text, whatever the system's encoding.
std::filesystem::path PathOf(const std::string& utf8);
/// Writes the file (its path is UTF-8), in place of one that is there, and makes the folders above it. Throws
/// PathAccessError (75), with the path and the system's reason, when that cannot be done.
void SaveFile(const std::string& path, std::string_view bytes);
/// Writes files, by name, into the folder, which is made if need be. None takes its place before all are written, so
/// that a full disk leaves what was there. Throws as SaveFile does.
void SaveFiles(const std::string& folder, const std::map<std::string, std::string>& files);
/// Removes the file, if there is one. Throws as SaveFile does.
void RemoveFile(const std::string& path);

}  // namespace sorvex
