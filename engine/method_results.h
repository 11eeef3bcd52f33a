// The four calculations of an asset and the choice of one.
#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "engine/calculate_dep.h"
#include "engine/method.h"

namespace depcalc {

/// What the four calculations gave. A schedule that met an error is empty.
struct MethodResults {
  std::vector<Currency> straight_line;
  std::vector<Currency> sum_of_years_digits;
  std::vector<Currency> double_declining_balance;
  Currency rate;  ///< per unit of production
};

/// A method that gives a schedule, and where its amounts are.
struct ScheduledMethod {
  Method method;
  std::vector<Currency> MethodResults::*amounts;
};

/// In the order in which they are calculated.
inline constexpr std::array<ScheduledMethod, 3> scheduled_methods{
    {{methods[0], &MethodResults::straight_line},
     {methods[1], &MethodResults::sum_of_years_digits},
     {methods[2], &MethodResults::double_declining_balance}}};

/// Calculates `asset` by every method. The straight line comes first: the others use its share of
/// the first fiscal year. A life whose amounts cannot be held is an error to the caller. The
/// storage of `results` is used again.
void calculateAllMethods(CalculateDep& asset, MethodResults& results);

/// Makes the method of that code the asset's, and its results the asset's amounts:
/// the rate alone for units of production, whatever stands behind it is never read. Any other
/// text changes nothing. The method stands in the asset even where its amounts then cannot be
/// written: a missing one is error 9.
void chooseMethod(CalculateDep& asset, std::string_view method, const MethodResults& results);

/// Calculates `asset` as the comparison of the methods does and gives it the amounts of its
/// method; without one it stays without amounts, as one saved from the entry form.
void calculateChosen(CalculateDep& asset);

}  // namespace depcalc
