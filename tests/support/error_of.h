#pragma once

#include <functional>

#include "values/runtime_error.h"

namespace depcalc {

/// The number of the run-time error that `body` ends with, 0 when it ends well.
inline int errorOf(const std::function<void()>& body) {
  try {
    body();
  } catch (const RuntimeError& error) {
    return error.number();
  }
  return 0;
}

}  // namespace depcalc
