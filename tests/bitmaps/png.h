// SPDX-License-Identifier: MIT
// Reference pictures of the tests of bitmap files.
#pragma once

#include <filesystem>

#include "base/bitmap.h"

namespace sorvex {

/// The colors of a PNG file. Throws when it cannot be read.
Bitmap ReadPng(const std::filesystem::path& path);

}  // namespace sorvex
