// The fiscal years of an asset.
#pragma once

#include <algorithm>

#include "engine/told_steps.h"
#include "values/date.h"

namespace depcalc {

/// The fiscal years of one asset from the one in which it was placed in service, each named by the
/// calendar year in which it ends. Years beyond 9999 do not exist: error 5.
class AssetFiscalYears {
 public:
  /// Of `fiscal_year_end` only month and day count; see `firstFiscalYearEnd`.
  AssetFiscalYears(Date placed_in_service, Date fiscal_year_end);

  [[nodiscard]] int first() const { return first_year_; }

  /// The end of the first fiscal year in calendar year `year`; 29 February is the 28th in a common
  /// year.
  [[nodiscard]] Date lastDay(int year) const;
  /// The day after the end of the year before.
  [[nodiscard]] Date firstDay(int year) const;
  /// The first fiscal year that ends on `day` or later, one beyond 9999 where none does; the first
  /// for all days before its end.
  [[nodiscard]] int of(Date day) const;
  /// The same for who listens to when an asset leaves service.
  template <Listener L>
  [[nodiscard]] int of(Date day, L& listener) const;

 private:
  Date first_end_;
  int first_year_;
};

template <Listener L>
int AssetFiscalYears::of(Date day, L& listener) const {
  using Number = typename L::Number;
  const int year = std::max(day.year(), first_year_);
  const bool over = lastDay(year) < day;
  listener.tell(RuleStep::year_of_disposal, over ? Number(year) + 1.0 : Number(year),
                {.from = day});
  return over ? year + 1 : year;
}

}  // namespace depcalc
