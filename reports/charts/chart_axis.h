// The scale beside a chart.
#pragma once

#include <string>
#include <vector>

#include "values/currency.h"

namespace depcalc {

/// Amounts at even distances, each 1, 2 or 5 with noughts: the few of them that surround all that
/// is to be drawn, and 0.
struct ChartAxis {
  double low = 0;  ///< the amount at the foot of the axis
  double high = 1;
  std::vector<Currency> ticks;  ///< from the lowest up; one beyond all amounts is left out
  Currency step;
};

/// The axis for amounts from `least` to `most` with at most `intervals` (at least 2) steps; where
/// amounts lie on both sides of 0, with at most two more.
ChartAxis chartAxis(Currency least, Currency most, int intervals);

/// How the axis writes `tick`: "10,000", "0.05", and where all ticks are whole millions, billions
/// (US) or trillions "2M", "2B", "2T".
std::string tickText(const ChartAxis& axis, Currency tick);

}  // namespace depcalc
