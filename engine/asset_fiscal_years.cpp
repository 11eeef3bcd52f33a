#include "engine/asset_fiscal_years.h"

#include "engine/first_fiscal_year.h"

namespace depcalc {

AssetFiscalYears::AssetFiscalYears(Date placed_in_service, Date fiscal_year_end)
    : first_end_(firstFiscalYearEnd(placed_in_service, fiscal_year_end)),
      first_year_(first_end_.year()) {}

Date AssetFiscalYears::lastDay(int year) const { return first_end_.plusYears(year - first_year_); }

Date AssetFiscalYears::firstDay(int year) const { return lastDay(year - 1).plusDays(1); }

int AssetFiscalYears::of(Date day) const {
  Silent nobody;
  return of(day, nobody);
}

}  // namespace depcalc
