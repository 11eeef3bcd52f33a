#include "reports/chart.h"

#include <algorithm>
#include <optional>

#include "reports/company_years.h"

namespace depcalc {
namespace {

/// Whether `a` is larger (1), smaller (-1) or the same.
int order(Currency a, Currency b) { return static_cast<int>(a > b) - static_cast<int>(a < b); }

/// The crossing of two lines that stood one way in year `before` and stand the other way in `year`.
Crossing crossingOf(const std::vector<Currency>& up, const std::vector<Currency>& down,
                    std::size_t before, std::size_t year) {
  Crossing crossing{0, 0, year, static_cast<double>(before + 1), up[before + 1].toDouble()};
  if (year > before + 1) return crossing;
  const double gap_before = down[before].toDouble() - up[before].toDouble();
  const double gap_after = up[year].toDouble() - down[year].toDouble();
  const double part = gap_before / (gap_before + gap_after);
  crossing.at = static_cast<double>(before) + part;
  crossing.value = up[before].toDouble() + part * (up[year].toDouble() - up[before].toDouble());
  return crossing;
}

void addCrossings(const Chart& chart, ChartFigures figures, std::size_t first, std::size_t second,
                  std::vector<Crossing>& crossings) {
  const std::vector<Currency>& a = chart.series[first].*figures;
  const std::vector<Currency>& b = chart.series[second].*figures;
  std::optional<std::size_t> before;
  for (std::size_t year = 0; year < std::min(a.size(), b.size()); ++year) {
    const int now = order(a[year], b[year]);
    if (now == 0) continue;
    if (before && order(a[*before], b[*before]) != now) {
      Crossing crossing =
          now > 0 ? crossingOf(a, b, *before, year) : crossingOf(b, a, *before, year);
      crossing.above = now > 0 ? first : second;
      crossing.below = now > 0 ? second : first;
      crossings.push_back(crossing);
    }
    before = year;
  }
}

void addSentences(const Chart& chart, ChartFigures figures, std::string_view does,
                  std::vector<std::string>& sentences) {
  for (const Crossing& crossing : crossingsOf(chart, figures)) {
    std::string sentence =
        "From " + fiscalYearName(chart.first_year + static_cast<int>(crossing.year)) + " on, ";
    sentence.append(chart.series[crossing.above].name).append(does);
    sentence.append(chart.series[crossing.below].name).append(".");
    sentences.push_back(std::move(sentence));
  }
}

}  // namespace

std::size_t Chart::years() const {
  std::size_t most = 0;
  for (const ChartSeries& each : series) most = std::max(most, each.amounts.size());
  return most;
}

std::vector<Crossing> crossingsOf(const Chart& chart, ChartFigures figures) {
  std::vector<Crossing> crossings;
  for (std::size_t first = 0; first < chart.series.size(); ++first) {
    for (std::size_t second = first + 1; second < chart.series.size(); ++second) {
      addCrossings(chart, figures, first, second, crossings);
    }
  }
  std::stable_sort(crossings.begin(), crossings.end(),
                   [](const Crossing& a, const Crossing& b) { return a.year < b.year; });
  return crossings;
}

std::vector<std::string> crossingSentences(const Chart& chart) {
  std::vector<std::string> sentences;
  addSentences(chart, &ChartSeries::amounts, " takes more than ", sentences);
  addSentences(chart, &ChartSeries::book_values, " leaves a higher book value than ", sentences);
  return sentences;
}

}  // namespace depcalc
