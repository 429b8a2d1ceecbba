// SPDX-License-Identifier: MIT
// A small source from which a maker can start.
#pragma once

#include <map>
#include <string>

namespace sorvex {

/// The files of the source, names and bytes: theme.toml with a comment on every key, pictures and sounds. The theme
/// made from it has no finding. Throws OutOfMemory (7).
std::map<std::string, std::string> StarterSource();

}  // namespace sorvex
