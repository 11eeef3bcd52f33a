// The error trap of a procedure.
#pragma once

#include <new>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "values/runtime_error.h"

namespace depcalc {

/// Reports `error` of `procedure` through ReportError. A listener that runs out of memory over it
/// hears that instead. Throws nothing for want of memory, and allocates nothing.
void reportTrapped(std::string_view procedure, const RuntimeError& error);

/// Runs `body` under the error trap of `procedure` ("DepCalc::WriteData"). A run-time error stops
/// the body where it stands and is reported; what was done stays done. Running out of memory is
/// error 7. Returns whether the body came to its end.
///
/// `at_error`, where given, is what the trap does before it reports; its own errors are not
/// trapped.
template <typename Body, typename AtError>
bool trapped(std::string_view procedure, Body&& body, AtError&& at_error) {
  std::optional<RuntimeError> met;
  try {
    std::forward<Body>(body)();
  } catch (RuntimeError& error) {
    met.emplace(std::move(error));  // a copy might need memory that is not there
  } catch (const std::bad_alloc&) {
    met = RuntimeError::outOfMemory();
  } catch (const std::length_error&) {
    met = RuntimeError::outOfMemory();
  }
  if (!met) return true;
  std::forward<AtError>(at_error)();
  reportTrapped(procedure, *met);
  return false;
}

template <typename Body>
bool trapped(std::string_view procedure, Body&& body) {
  return trapped(procedure, std::forward<Body>(body), [] {});
}

}  // namespace depcalc
