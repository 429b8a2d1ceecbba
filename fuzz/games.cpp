// SPDX-License-Identifier: MIT
// Random games on random themes against the model of the rules; the input makes every choice.
#include <gtest/gtest.h>

#include "fuzzing.h"
#include "support/random_game.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  GTEST_FLAG_SET(throw_on_failure, true);  // which nothing catches
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::map<std::string, int> counts;
  sorvex::RandomGame(sorvex::Random({data, size}), counts).Play(60);
  return 0;
}
