#include "reports/register.h"

namespace depcalc {

std::string coverLine(const RegisterOfAssets& assets, const std::string& period) {
  constexpr auto separator = " · ";
  std::string line = assets.company;
  if (!line.empty() && !period.empty()) line += separator;
  line += period;
  return line + (line.empty() ? "" : separator) + "all amounts as saved in the register";
}

std::string periodOf(const RegisterOfAssets& assets, int year) {
  return longDate(assets.years.firstDay(year)) + " to " + longDate(assets.years.lastDay(year));
}

}  // namespace depcalc
