// Which of the told steps explain an amount.
#pragma once

#include <cstddef>
#include <vector>

#include "explain/tracer.h"

namespace depcalc {

/// The steps that lead to the amount that was told as `steps[amount]`, in the order in which they
/// were told: all of its fiscal year, but for running totals that it does not use, and what these
/// use. Of another year's step they take the result as given and do not go further back.
std::vector<std::size_t> stepsOfYear(const std::vector<ToldStep>& steps, std::size_t amount);

}  // namespace depcalc
