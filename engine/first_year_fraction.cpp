#include "engine/first_year_fraction.h"

namespace depcalc {
double firstYearFraction(std::int32_t convention, Date depreciation_start, Date first_year_end) {
  Silent nobody;
  return firstYearFraction(convention, depreciation_start, first_year_end, nobody);
}

FirstFiscalYear firstFiscalYearOf(std::int32_t convention, Date placed_in_service,
                                  Date fiscal_year_end) {
  Silent nobody;
  return firstFiscalYearOf(convention, placed_in_service, fiscal_year_end, nobody);
}

}  // namespace depcalc
