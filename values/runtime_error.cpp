#include "values/runtime_error.h"

namespace depcalc {

RuntimeError RuntimeError::invalidCall() { return {5, "Invalid procedure call or argument"}; }
RuntimeError RuntimeError::overflow() { return {6, "Overflow"}; }
RuntimeError RuntimeError::outOfMemory() { return {7, "Out of memory"}; }
RuntimeError RuntimeError::subscriptOutOfRange() { return {9, "Subscript out of range"}; }
RuntimeError RuntimeError::divisionByZero() { return {11, "Division by zero"}; }
RuntimeError RuntimeError::typeMismatch() { return {13, "Type mismatch"}; }
RuntimeError RuntimeError::objectNotSet() {
  return {91, "Object variable or With block variable not set"};
}

}  // namespace depcalc
