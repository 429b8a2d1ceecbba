// SPDX-License-Identifier: MIT
// Numbers in the files that the kit writes.
#pragma once

#include <cstdint>
#include <string>

namespace sorvex {

/// Appends the lowest `size` bytes of `number`, the lowest first.
inline void AppendNumber(std::string& bytes, std::uint32_t number, int size) {
  for (int i = 0; i < size; ++i) bytes += static_cast<char>(number >> 8 * i & 0xFF);
}

}  // namespace sorvex
