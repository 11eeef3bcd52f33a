// What a chart of an asset shows: the methods' amounts and book values, year by year.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "values/currency.h"

namespace depcalc {

/// A method's figures in the fiscal years from the chart's first; the vectors are of one length.
struct ChartSeries {
  std::string_view code;              ///< "SL"
  std::string_view name;              ///< "Straight Line"
  std::vector<Currency> book_values;  ///< at the end of each fiscal year
  std::vector<Currency> amounts;      ///< of each fiscal year
  bool chosen = false;                ///< it is the asset's method
};

struct Chart {
  std::string title;   ///< "TRK-014, Delivery truck"; may be empty
  int first_year = 0;  ///< the fiscal year of the first figures
  std::vector<ChartSeries> series;

  /// Fiscal years from the first to the last that any series has.
  [[nodiscard]] std::size_t years() const;
};

/// Which of a series' figures.
using ChartFigures = std::vector<Currency> ChartSeries::*;

/// Where two series cross: one is the larger up to some fiscal year and the smaller behind it.
/// Years in between in which both are the same belong to neither side.
struct Crossing {
  std::size_t above;  ///< the series that is the larger one from there on
  std::size_t below;
  std::size_t year;  ///< the first in which it is, counted from the chart's first
  double at;         ///< where the lines meet: 1.5 is halfway between the second and third year
  double value;      ///< and at which amount
};

/// In the order of their years.
std::vector<Crossing> crossingsOf(const Chart& chart, ChartFigures figures);

/// What the crossings come to, a sentence each: "From FY2027 on, Straight Line takes more than
/// Double Declining Balance."
std::vector<std::string> crossingSentences(const Chart& chart);

}  // namespace depcalc
