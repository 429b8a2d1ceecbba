// SPDX-License-Identifier: MIT
// What the fuzzers share: the sanitizer's options, their input as text, and a check that stops them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

// Every run frees megabytes of surfaces. To keep them poisoned for long takes more time than the run itself.
// Not inline, so that it replaces the runtime's own weak function; each fuzzer is one source file.
extern "C" const char* __asan_default_options() {
  return "quarantine_size_mb=2:allocator_release_to_os_interval_ms=-1";
}

namespace sorvex {

inline std::string_view AsText(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// Ends the fuzzer with a report unless `holds`.
inline void Require(bool holds) {
  if (!holds) std::abort();
}

/// Cuts an input into pieces; behind its end it is zeros.
class Pieces {
 public:
  Pieces(const std::uint8_t* data, std::size_t size) : rest_(AsText(data, size)) {}
  bool AtEnd() const { return rest_.empty(); }
  unsigned Byte() {
    const std::string_view byte = Bytes(1);
    return byte.empty() ? 0 : static_cast<unsigned char>(byte.front());
  }
  unsigned Word() {
    const unsigned low = Byte();
    return low | Byte() << 8;
  }
  std::string_view Bytes(std::size_t count) {
    const std::string_view bytes = rest_.substr(0, count);
    rest_.remove_prefix(bytes.size());
    return bytes;
  }

 private:
  std::string_view rest_;
};

}  // namespace sorvex
