// SPDX-License-Identifier: MIT
// The reader of wave files: the samples lie inside the file.
#include "base/wave.h"
#include "fuzzing.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace sorvex;
  const std::string_view file = AsText(data, size);
  const std::optional<Wave> wave = ReadWave(file);
  if (!wave) return 0;
  Require(wave->channels >= 1 && wave->channels <= 8 && wave->sampleRate >= 1000 && wave->sampleRate <= 384000);
  Require(wave->samples.data() >= file.data() &&
          wave->samples.data() + wave->samples.size() <= file.data() + file.size());
  Require(wave->samples.size() % (static_cast<std::size_t>(wave->channels) * SizeOf(wave->kind)) == 0);
  return 0;
}
