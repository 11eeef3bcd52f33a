// What works expressions out anew must itself be right, and refuse what is none.
#include "tests/explain/evaluator.h"

#include <gtest/gtest.h>

namespace depcalc {
namespace {

TEST(Evaluator, CalculatesFromLeftToRightOnDoubles) {
  const struct {
    const char* expression;
    double value;
  } cases[] = {
      {"5", 5},
      {"0.1 + 0.2", 0.1 + 0.2},
      {"1 - 2 - 3", -4},
      {"1 - (2 - 3)", 2},
      {"2 + 3 * 4", 14},
      {"(2 + 3) * 4", 20},
      {"7 / 3 * 3", 7.0 / 3.0 * 3.0},
      {"round2(0.125)", 0.12},
      {"round2(0.375)", 0.38},
      {"currency(0.1 + 0.2)", 0.3},
      {"round2(currency(5741.6667 + 4593.3333))", 10335},
      {"38450 - currency(38450 * 0.4)", 23070},
  };
  for (const auto& c : cases) EXPECT_EQ(evaluated(c.expression), c.value) << c.expression;
}

TEST(Evaluator, RefusesWhatIsNoExpression) {
  for (const char* text : {"", "1 +", "1 + + 2", "(1", "1)", "1,000", "-5", "1e5", "floor(2)", "x",
                           "1 2", "1+2", "round2()", "×", "1 − 2"}) {
    EXPECT_FALSE(evaluated(text)) << text;
  }
}

}  // namespace
}  // namespace depcalc
