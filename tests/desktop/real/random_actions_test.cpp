// Hundreds of random actions of a user in the real window: after each, what the file holds is what
// the user was told.
#include <cstdlib>

#include "tests/desktop/real/random_actions.h"
#include "tests/support/effort.h"

namespace depcalc::testing {
namespace {

constexpr int actions_of_a_walk = 100;

/// DEPCALC_SEED begins elsewhere.
unsigned firstSeed() {
  const char* const wanted = std::getenv("DEPCALC_SEED");
  return wanted == nullptr ? 20240615 : static_cast<unsigned>(std::atoi(wanted));
}

unsigned walks() { return testing_support::inLongRun() ? 20 : 5; }

struct RandomActionsFrom : RandomActions, ::testing::WithParamInterface<unsigned> {};

TEST_P(RandomActionsFrom, TheFileHoldsWhatTheUserWasTold) { walk(GetParam(), actions_of_a_walk); }

INSTANTIATE_TEST_SUITE_P(Seed, RandomActionsFrom,
                         ::testing::Range(firstSeed(), firstSeed() + walks()),
                         ::testing::PrintToStringParamName());

}  // namespace
}  // namespace depcalc::testing
