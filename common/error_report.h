// What is told of an error that a procedure's trap caught.
#pragma once

#include <string>
#include <string_view>

namespace depcalc {

/// A trapped run-time error. It borrows its texts and is made without allocating, so that it is
/// whole where memory has run out; it lasts as long as the call that hands it over.
struct ErrorReport {
  std::string_view procedure;  ///< "DepCalc::WriteData"
  int number = 0;
  std::string_view description;

  /// The values of an asset can cause it, and the calculator deals with it.
  [[nodiscard]] bool isOfValues() const noexcept;
  /// Memory ran out. What is neither is of the host, its file or its devices.
  [[nodiscard]] bool isOfMemory() const noexcept;

  /// "DepCalc::WriteData Error#75: Permission denied".
  [[nodiscard]] std::string text() const;
};

}  // namespace depcalc
