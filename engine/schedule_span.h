// How many fiscal years a schedule spans.
#pragma once

#include <cstdint>

#include "engine/calculate_dep.h"

namespace depcalc {

/// Years of `life` touch one fiscal year more than their number, unless the first takes a whole
/// year's depreciation.
constexpr double fiscalYearsSpanned(double life, bool full_first_year) {
  return full_first_year ? life : life + 1.0;
}

/// Whether the asset takes a whole year's depreciation in its first fiscal year.
bool isFullYear(const CalculateDep& asset);

/// The fiscal years of the asset's schedules, to the nearest whole number, halves to even. Beyond
/// 16 bits: error 6.
std::int16_t fiscalYearsSpanned(const CalculateDep& asset);

/// The index of the last of them, rounded by itself.
std::int16_t lastFiscalYearSpanned(const CalculateDep& asset);

}  // namespace depcalc
