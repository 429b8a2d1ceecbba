// SPDX-License-Identifier: MIT
// Making wave files, whole ones and odd ones.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace sorvex {

inline std::string LittleEndian(std::uint32_t number, int size) {
  std::string bytes;
  for (int i = 0; i < size; ++i) bytes += static_cast<char>(number >> 8 * i);
  return bytes;
}

inline std::string Chunk(const std::string& name, const std::string& bytes) {
  return name + LittleEndian(static_cast<std::uint32_t>(bytes.size()), 4) + bytes;
}

struct WaveFile {
  std::uint32_t tag = 1;
  std::uint32_t channels = 1;
  std::uint32_t rate = 8000;
  std::uint32_t bits = 16;
  std::optional<std::uint32_t> subFormat = {};  // of a file in the extensible format
  std::string between = {};                     // chunks between the format and the samples
  std::optional<std::uint32_t> declared = {};   // as the length of the samples

  std::string With(const std::string& samples) const {
    const std::uint32_t frame = channels * bits / 8;
    std::string format = LittleEndian(tag, 2) + LittleEndian(channels, 2) + LittleEndian(rate, 4) +
                         LittleEndian(rate * frame, 4) + LittleEndian(frame, 2) + LittleEndian(bits, 2);
    if (subFormat)
      format += LittleEndian(22, 2) + LittleEndian(bits, 2) + LittleEndian(0, 4) + LittleEndian(*subFormat, 4) +
                std::string("\0\0\x10\0\x80\0\0\xAA\0\x38\x9B\x71", 12);
    const std::uint32_t length = declared.value_or(static_cast<std::uint32_t>(samples.size()));
    return Chunk("RIFF", "WAVE" + Chunk("fmt ", format) + between + "data" + LittleEndian(length, 4) + samples);
  }
};

}  // namespace sorvex
