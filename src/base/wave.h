// SPDX-License-Identifier: MIT
// Wave files: what their samples are and where they stand.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace sorvex {

/// Little-endian, unsigned up to 8 bits, signed from 16.
enum class SampleKind { Unsigned8, Signed16, Signed24, Signed32, Float32 };

/// Bytes of one sample.
std::size_t SizeOf(SampleKind kind);

struct Wave {
  int channels = 0;    ///< 1 to 8, interleaved
  int sampleRate = 0;  ///< frames a second, 1,000 to 384,000
  SampleKind kind = SampleKind::Unsigned8;
  std::string_view samples;  ///< whole frames, inside the file's bytes
};

/// The sound in a file's bytes. No length that the file declares is believed: samples end where the bytes do. Nullopt
/// when it is no RIFF file of uncompressed sound.
std::optional<Wave> ReadWave(std::string_view file);

}  // namespace sorvex
