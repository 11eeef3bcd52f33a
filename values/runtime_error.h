// Run-time errors: what goes wrong below the level of a user's mistake.
#pragma once

#include <exception>
#include <string>
#include <utility>

namespace depcalc {

/// A run-time error with the number and description that error reports show. Thrown anywhere,
/// caught by `trapped` (common/trapped.h) at the procedure and nowhere else.
class RuntimeError : public std::exception {
 public:
  RuntimeError(int number, std::string description)
      : number_(number), description_(std::move(description)) {}

  [[nodiscard]] int number() const noexcept { return number_; }
  [[nodiscard]] const std::string& description() const noexcept { return description_; }
  [[nodiscard]] const char* what() const noexcept override { return description_.c_str(); }

  static RuntimeError invalidCall() { return {5, "Invalid procedure call or argument"}; }
  static RuntimeError overflow() { return {6, "Overflow"}; }
  static RuntimeError outOfMemory() { return {7, "Out of memory"}; }
  static RuntimeError subscriptOutOfRange() { return {9, "Subscript out of range"}; }
  static RuntimeError divisionByZero() { return {11, "Division by zero"}; }
  static RuntimeError typeMismatch() { return {13, "Type mismatch"}; }
  static RuntimeError objectNotSet() {
    return {91, "Object variable or With block variable not set"};
  }

 private:
  int number_;
  std::string description_;
};

}  // namespace depcalc
