// How numbers are shown. Halves are rounded to even on the decimal digits of the value (a double
// counts as its 15 significant digits), and what rounds to zero shows no minus sign.
#pragma once

#include <string>
#include <string_view>

#include "values/currency.h"

namespace depcalc {

/// "#,##0.00": money, 12,344.50. Not finite: error 6.
std::string formatMoney(Currency value);
std::string formatMoney(double value);

/// "#,##0.00##": money with as many decimals as it has, two at least, 12,344.5025.
std::string formatExactMoney(Currency value);

/// The amount that formatMoney shows for the number that `text` says: cents, halves to even.
/// Not numeric: error 13. Out of a Currency's range: error 6.
Currency moneyAsShown(std::string_view text);

/// "#,##0.0000": the rate per unit of production, 0.2297.
std::string formatRate(Currency value);

/// A number of any kind, with at least `least` decimals and, where it has more than `most`, that
/// many of them and an ellipsis: 0.5, 0.583333…, 6,890.00. Nothing is rounded. Not finite: error 6.
std::string formatCutShort(double value, int least, int most);

/// "#,##0": production capacity, 12,346. Not finite: error 6.
std::string formatWhole(double value);

}  // namespace depcalc
