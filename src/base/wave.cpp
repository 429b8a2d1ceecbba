// SPDX-License-Identifier: MIT
// Walking the chunks of a RIFF file. The fields are those of WAVEFORMATEX and WAVEFORMATEXTENSIBLE (mmreg.h).
#include "base/wave.h"

#include <algorithm>
#include <cstdint>

namespace sorvex {
namespace {

constexpr std::size_t kTagSize = 4;
constexpr std::size_t kHeaderSize = 8;  // of a chunk: name and length

// Values of wFormatTag. Some writers leave it 0 for PCM.
constexpr std::uint32_t kUnknown = 0;
constexpr std::uint32_t kPcm = 1;
constexpr std::uint32_t kFloat = 3;
constexpr std::uint32_t kExtensible = 0xFFFE;

// The little-endian number of `size` bytes at `at`; not checked.
std::uint32_t NumberAt(std::string_view bytes, std::size_t at, std::size_t size) {
  std::uint32_t number = 0;
  for (std::size_t i = size; i-- > 0;) number = number << 8 | static_cast<unsigned char>(bytes[at + i]);
  return number;
}

std::optional<SampleKind> KindOf(std::uint32_t tag, std::uint32_t bits) {
  if (tag == kFloat && bits == 32) return SampleKind::Float32;
  if (tag != kPcm && tag != kUnknown) return std::nullopt;
  switch (bits) {
    case 8: return SampleKind::Unsigned8;
    case 16: return SampleKind::Signed16;
    case 24: return SampleKind::Signed24;
    case 32: return SampleKind::Signed32;
    default: return std::nullopt;
  }
}

// Parses the format chunk: everything but the samples.
std::optional<Wave> ReadFormat(std::string_view chunk) {
  constexpr std::size_t kShortest = 16;
  constexpr std::size_t kSubFormatAt = 24;  // a GUID that begins with the format tag
  if (chunk.size() < kShortest) return std::nullopt;
  std::uint32_t tag = NumberAt(chunk, 0, 2);
  const std::uint32_t channels = NumberAt(chunk, 2, 2);
  const std::uint32_t rate = NumberAt(chunk, 4, 4);
  if (tag == kExtensible && chunk.size() >= kSubFormatAt + 2) tag = NumberAt(chunk, kSubFormatAt, 2);
  const std::optional<SampleKind> kind = KindOf(tag, NumberAt(chunk, 14, 2));
  if (!kind || channels < 1 || channels > 8 || rate < 1'000 || rate > 384'000) return std::nullopt;
  return Wave{static_cast<int>(channels), static_cast<int>(rate), *kind, {}};
}

// Chunks of odd length are padded by one byte, which some writers omit.
void SkipPadding(std::string_view& rest) {
  if (!rest.starts_with("fmt ") && !rest.starts_with("data")) rest.remove_prefix(std::min<std::size_t>(1, rest.size()));
}

}  // namespace

std::size_t SizeOf(SampleKind kind) {
  switch (kind) {
    case SampleKind::Unsigned8: return 1;
    case SampleKind::Signed16: return 2;
    case SampleKind::Signed24: return 3;
    case SampleKind::Signed32:
    case SampleKind::Float32: break;
  }
  return 4;
}

std::optional<Wave> ReadWave(std::string_view file) {
  if (!file.starts_with("RIFF") || file.substr(std::min(kHeaderSize, file.size()), kTagSize) != "WAVE")
    return std::nullopt;
  std::optional<Wave> wave;
  for (std::string_view rest = file.substr(kHeaderSize + kTagSize); rest.size() >= kHeaderSize;) {
    const std::string_view tag = rest.substr(0, kTagSize);
    const std::size_t declared = NumberAt(rest, kTagSize, 4);
    rest.remove_prefix(kHeaderSize);
    const std::string_view chunk = rest.substr(0, declared);
    if (tag == "fmt ") wave = ReadFormat(chunk);
    if (tag == "data") {
      if (!wave) return std::nullopt;
      // Streaming writers, which cannot seek back to fill in the length, leave it 0.
      wave->samples = declared == 0 ? rest : chunk;
      const std::size_t frame = SizeOf(wave->kind) * static_cast<std::size_t>(wave->channels);
      wave->samples.remove_suffix(wave->samples.size() % frame);
      return wave;
    }
    rest.remove_prefix(chunk.size());
    if (declared % 2 != 0) SkipPadding(rest);
  }
  return std::nullopt;
}

}  // namespace sorvex
