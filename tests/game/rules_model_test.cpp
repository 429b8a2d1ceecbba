// SPDX-License-Identifier: MIT
// The game against an independent model of its rules.
#include "support/random_game.h"

namespace sorvex {
namespace {

TEST(TheRules, AreThoseOfThePlainModelInEveryFrame) {
  const Random random;
  std::map<std::string, int> counts;
  for (unsigned game = 0; game < 60 && !HasFailure(); ++game) RandomGame(Random(random.Seed + game), counts).Play(150);
  const std::map<std::string, int> leastCounts = {{"Pickup", 200}, {"LetGo", 60},   {"HitTube", 100}, {"PutInCont", 15},
                                                  {"Game", 3},     {"frame", 1500}, {"What", 2},      {"Loaded", 15},
                                                  {"There", 2},    {"No", 0}};
  for (const auto& [what, least] : leastCounts) EXPECT_GT(counts[what], least) << what << ": too few to mean anything";
}

}  // namespace
}  // namespace sorvex
