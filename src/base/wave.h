// SPDX-License-Identifier: MIT
// Parsing wave files: sample format and position of the samples.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace sorvex {

/// Sample formats; all are little-endian.
enum class SampleKind { Unsigned8, Signed16, Signed24, Signed32, Float32 };

/// Bytes of one sample.
std::size_t SizeOf(SampleKind kind);

struct Wave {
  int channels = 0;    ///< 1 to 8, interleaved
  int sampleRate = 0;  ///< frames per second, 1,000 to 384,000
  SampleKind kind = SampleKind::Unsigned8;
  std::string_view samples;  ///< whole frames; a view into the file's bytes
};

/// Parses a wave file's bytes, which must outlive the result. Declared lengths are not trusted: samples end at the
/// latest where the bytes do. nullopt if it is not a RIFF file with uncompressed sound in one of the formats above.
std::optional<Wave> ReadWave(std::string_view file);

}  // namespace sorvex
