// How numbers and month names are written.
#pragma once

#include <array>
#include <string_view>

namespace depcalc {

/// The conventions that texts follow. Passed by value or reference; the process's own locale is
/// never read. Dates are month first in every locale.
struct Locale {
  char decimal_point;
  char thousands_separator;
  std::array<std::string_view, 12> month_names;

  /// 1,234.56 and January to December: the built-in conventions.
  static const Locale& enUs();
};

}  // namespace depcalc
