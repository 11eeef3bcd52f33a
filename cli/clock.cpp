#include "cli/clock.h"

#include <ctime>

namespace depcalc {

Date todayByTheClock() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  localtime_r(&now, &parts);
  return Date::carrying(parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday);
}

}  // namespace depcalc
