#include "engine/disposal.h"

#include <algorithm>
#include <cmath>

#include "engine/convention.h"
#include "engine/first_year_fraction.h"
#include "values/money_range.h"

namespace depcalc {
namespace {

double unlimitedShare(std::int32_t convention, Date year_start, Date year_end, Date disposed) {
  const double months = monthsBetween(year_start, disposed);
  switch (convention) {
    case cdepfullyear:
      return 0.0;
    case cdepHalfYear:
      return 0.5;
    case cdepFullMonth:
      return months / 12.0;
    case cdepHalfMonth:
      return (disposed.day() < 16 ? months : months + 1.0) / 12.0;
    default:
      return daysBetween(year_start, disposed) / daysCounted(year_end);
  }
}

/// An amount's size as a number below 0, of which there is one more than above.
Currency sizeBelowZero(Currency amount) {
  return amount > Currency() ? Currency() - amount : amount;
}

}  // namespace

double shareHeld(std::int32_t convention, Date year_start, Date year_end, Date disposed) {
  return std::clamp(unlimitedShare(convention, year_start, year_end, disposed), 0.0, 1.0);
}

double shareCovered(std::int32_t convention, double first_year_fraction, bool last_year) {
  return last_year && convention != cdepfullyear ? 1.0 - first_year_fraction : 1.0;
}

Currency amountOfDisposalYear(Currency amount, double held, double covered) {
  if (covered <= 0.0) return amount;
  const double share = amount.toDouble() * held / covered;
  if (std::fabs(share) >= more_than_money) return amount;
  const Currency rounded = Currency::fromDoubleTo2HalfEven(share);
  return sizeBelowZero(rounded) < sizeBelowZero(amount) ? amount : rounded;
}

Currency gainOnDisposal(Currency proceeds, Currency basis, Currency accumulated) {
  return proceeds - (basis - accumulated);
}

}  // namespace depcalc
