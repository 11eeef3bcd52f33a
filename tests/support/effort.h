// How much is tried of what has no end.
#pragma once

#include <cstdlib>

namespace depcalc::testing_support {

/// `./check --long`, or DEPCALC_LONG set.
inline bool inLongRun() { return std::getenv("DEPCALC_LONG") != nullptr; }

/// How often a test repeats something: in every check, and in a long run.
struct Effort {
  int usual;
  int in_long_run;

  [[nodiscard]] int times() const { return inLongRun() ? in_long_run : usual; }
};

/// `count` for a test that is about results: where the sanitizers run several times slower, and
/// look for what the first cases show as well, a quarter does.
inline int fewerIfSanitized(int count) {
#ifdef DEPCALC_SANITIZED
  return count / 4;
#else
  return count;
#endif
}

}  // namespace depcalc::testing_support
