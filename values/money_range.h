// Which numbers are amounts of money.
#pragma once

namespace depcalc {

/// Every amount of money is below it in size; a larger number cannot be converted to one.
inline constexpr double more_than_money = 922'337'203'685'477.0;

}  // namespace depcalc
