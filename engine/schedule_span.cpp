#include "engine/schedule_span.h"

#include "engine/convention.h"
#include "values/number_text.h"
#include "values/rounding.h"

namespace depcalc {

bool isFullYear(const CalculateDep& asset) {
  return toLong32HalfEven(numberFromText(asset.DepConvention())) == cdepfullyear;
}

std::int16_t fiscalYearsSpanned(const CalculateDep& asset) {
  return toInteger16HalfEven(fiscalYearsSpanned(asset.DepRecovery(), isFullYear(asset)));
}

std::int16_t lastFiscalYearSpanned(const CalculateDep& asset) {
  return toInteger16HalfEven(isFullYear(asset) ? asset.DepRecovery() - 1.0 : asset.DepRecovery());
}

}  // namespace depcalc
