// The error trap of a procedure.
#pragma once

#include <new>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "values/runtime_error.h"

namespace depcalc {

/// Reports `error` of `procedure` through ReportError: "<procedure> Error#<number>: <description>".
void reportTrapped(std::string_view procedure, const RuntimeError& error);

/// Runs `body` under the error trap of `procedure` ("DepCalc::WriteData"). A run-time error stops
/// the body where it stands and is reported; what was done stays done. Running out of memory is
/// error 7. Returns whether the body came to its end.
template <typename Body>
bool trapped(std::string_view procedure, Body&& body) {
  try {
    std::forward<Body>(body)();
    return true;
  } catch (const RuntimeError& error) {
    reportTrapped(procedure, error);
  } catch (const std::bad_alloc&) {
    reportTrapped(procedure, RuntimeError::outOfMemory());
  } catch (const std::length_error&) {
    reportTrapped(procedure, RuntimeError::outOfMemory());
  }
  return false;
}

}  // namespace depcalc
