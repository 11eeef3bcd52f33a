// Interface identifiers.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace depcalc {

/// A globally unique identifier, laid out as the platform's own.
struct Guid {
  std::uint32_t data1 = 0;
  std::uint16_t data2 = 0;
  std::uint16_t data3 = 0;
  std::array<std::uint8_t, 8> data4{};

  /// The form used in the registry: braced, upper-case hexadecimal,
  /// "{00020400-0000-0000-C000-000000000046}".
  [[nodiscard]] std::string toText() const;
};

}  // namespace depcalc
