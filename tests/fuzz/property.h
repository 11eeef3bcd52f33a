// What must hold of every input.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace depcalc {

/// Ends the fuzzer, which then keeps the input, when a property does not hold.
inline void mustHold(bool property, const char* description) {
  if (property) return;
  std::fprintf(stderr, "does not hold: %s\n", description);
  std::abort();
}

}  // namespace depcalc
