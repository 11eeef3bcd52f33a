#include "reports/asset.h"

#include <algorithm>

#include "engine/asset_fiscal_years.h"
#include "engine/convention.h"
#include "engine/disposal.h"
#include "engine/first_fiscal_year.h"
#include "engine/method.h"

namespace depcalc {
namespace {

constexpr int last_year_of_calendar = 9999;

std::string_view methodCode(std::string_view text) {
  if (countsAsUnitsOfProduction(text)) return method_units_of_production;
  for (const Method& method : methods) {
    if (text == method.code) return method.code;
  }
  return {};
}

}  // namespace

std::size_t countedAmounts(double life, int first_year) {
  std::size_t count = 0;
  const int room = last_year_of_calendar - first_year + 1;
  for (int k = 0; k < life + 1.0 && k < room; ++k) ++count;
  return count;
}

ReportAsset::ReportAsset(SavedAsset saved)
    : saved_(std::move(saved)),
      method_(methodCode(saved_.method)),
      first_year_(firstFiscalYear(saved_.placed_in_service, saved_.fiscal_year_end)) {
  const bool by_units = isUnitsOfProduction(method_);
  scheduled_ = by_units ? !saved_.units.empty() : !method_.empty();
  findDisposal();
  if (!scheduled_ || first_year_ > last_year_of_calendar) return;
  amounts_ = by_units ? unitsAmounts() : saved_.amounts;
  if (!by_units) amounts_.resize(countedAmounts(saved_.life, first_year_));
  endAtDisposal();
}

std::string_view ReportAsset::convention() const { return conventionName(saved_.convention); }

/// A convention that is none of the five counts days.
std::int32_t ReportAsset::conventionNumber() const {
  const auto number = conventionFromFile(saved_.convention);
  return number == saved_.convention ? saved_.convention.front() - '0' : cdepActualDays;
}

std::vector<Currency> ReportAsset::unitsAmounts() const {
  const Currency rate = saved_.amounts.empty() ? Currency() : saved_.amounts.front();
  const int last = std::min(disposal_year_.value_or(last_year_of_calendar), last_year_of_calendar);
  const AmountsByYear by_year =
      amountsOfUnits(saved_.units, rate, saved_.basis - saved_.salvage, first_year_, last);
  if (by_year.empty()) return {};
  std::vector<Currency> amounts(static_cast<std::size_t>(by_year.rbegin()->first - first_year_) +
                                1);
  for (const auto& [year, amount] : by_year) {
    amounts[static_cast<std::size_t>(year - first_year_)] = amount;
  }
  return amounts;
}

void ReportAsset::findDisposal() {
  if (saved_.disposed.isNone() || saved_.disposed < saved_.placed_in_service) return;
  disposal_year_ =
      first_year_ > last_year_of_calendar
          ? first_year_
          : AssetFiscalYears(saved_.placed_in_service, saved_.fiscal_year_end).of(saved_.disposed);
}

/// By units, what was produced until then counts as it is.
void ReportAsset::endAtDisposal() {
  if (!disposal_year_) return;
  const auto last = static_cast<std::size_t>(*disposal_year_ - first_year_);
  if (last >= amounts_.size()) return;
  amounts_.resize(last + 1);
  if (!isUnitsOfProduction(method_)) amounts_[last] = amountOfDisposal(amounts_[last]);
}

Currency ReportAsset::amountOfDisposal(Currency amount) const {
  return amountUntilDisposal({.placed_in_service = saved_.placed_in_service,
                              .fiscal_year_end = saved_.fiscal_year_end,
                              .disposed = saved_.disposed,
                              .life = saved_.life,
                              .convention = conventionNumber()},
                             amount);
}

Currency ReportAsset::amount(int year) const { return amounts(year, year); }

Currency ReportAsset::amounts(int from, int to) const {
  Currency sum;
  const int last = std::min(to, lastYear());
  for (int year = std::max(from, first_year_); year <= last; ++year) {
    sum += amounts_[static_cast<std::size_t>(year - first_year_)];
  }
  return sum;
}

Currency ReportAsset::gain() const {
  return gainOnDisposal(saved_.proceeds, saved_.basis, allAmounts());
}

}  // namespace depcalc
