#include "desktop/workspace/chart_reading.h"

#include <algorithm>

#include "reports/company_years.h"
#include "reports/methods_chart.h"
#include "values/display_format.h"

namespace depcalc::desktop {
namespace {

/// What is missing before anything can be calculated; "" where nothing is.
std::string missing(const InsightSubject& subject) {
  if (subject.isNothing()) return "Choose an asset, and its chart appears here.";
  const SavedAsset& asset = subject.asset;
  if (asset.placed_in_service.isNone() || asset.basis == Currency() || asset.life == 0) {
    return "The chart appears when the asset has a placed-in-service date, a useful life and a "
           "basis.";
  }
  return {};
}

}  // namespace

ChartReading::ChartReading() : reason_(missing(subject_)) {}

void ChartReading::follow(const InsightSubject& subject) {
  if (subject == subject_) return;
  const bool other_asset = subject.asset.number != subject_.asset.number;
  const bool year_chosen = subject.fiscal_year && subject.fiscal_year != subject_.fiscal_year;
  const int shown = chart_.first_year + static_cast<int>(year_);
  subject_ = subject;
  reason_ = missing(subject);
  chart_ = reason_.empty() ? methodsChart(ReportAsset(subject.asset)) : Chart();
  if (isEmpty()) {
    if (reason_.empty()) reason_ = "No method gives a schedule for these values.";
    year_ = 0;
    return;
  }
  const int wanted = year_chosen || (other_asset && subject.fiscal_year) ? *subject.fiscal_year
                     : other_asset                                       ? chart_.first_year
                                                                         : shown;
  choose(static_cast<std::size_t>(std::max(0, wanted - chart_.first_year)));
}

bool ChartReading::choose(std::size_t year) {
  if (isEmpty()) return false;
  const std::size_t before = year_;
  year_ = std::min(year, chart_.years() - 1);
  return year_ != before;
}

bool ChartReading::move(int years) {
  if (years < 0 && year_ < static_cast<std::size_t>(-years)) return choose(0);
  return choose(year_ + static_cast<std::size_t>(years));
}

std::string ChartReading::spoken() const {
  if (isEmpty()) return reason_;
  std::string text = fiscalYearName(chart_.first_year + static_cast<int>(year_)) + ".";
  for (const ChartSeries& series : chart_.series) {
    text.append(" ").append(series.name).append(series.chosen ? ", the asset's method: " : ": ");
    if (year_ < series.amounts.size()) {
      text += "book value " + formatMoney(series.book_values[year_]) + ", depreciation " +
              formatMoney(series.amounts[year_]) + ".";
    } else {
      text += "no units.";
    }
  }
  return text;
}

std::string ChartReading::described() const {
  if (isEmpty()) return reason_;
  std::string text = "Book value and depreciation by every method.";
  for (const std::string& sentence : crossingSentences(chart_)) text += " " + sentence;
  return text;
}

std::string ChartReading::fileName() const {
  const std::string& id = subject_.asset.id;
  std::string name = (id.empty() ? "Asset" : id) + " chart";
  for (char& c : name) {
    if (static_cast<unsigned char>(c) < ' ' ||
        std::string_view("/\\:*?\"<>|").find(c) != std::string_view::npos)
      c = '_';
  }
  return name;
}

}  // namespace depcalc::desktop
