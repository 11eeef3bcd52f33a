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

  static RuntimeError invalidCall();          ///< 5
  static RuntimeError overflow();             ///< 6
  static RuntimeError outOfMemory();          ///< 7
  static RuntimeError subscriptOutOfRange();  ///< 9
  static RuntimeError divisionByZero();       ///< 11
  static RuntimeError typeMismatch();         ///< 13
  static RuntimeError objectNotSet();         ///< 91

 private:
  int number_;
  std::string description_;
};

}  // namespace depcalc
