#include "DepCalc/register_summary.h"

#include <algorithm>
#include <cmath>

#include "engine/first_fiscal_year.h"
#include "engine/schedule_span.h"
#include "values/rounding.h"

namespace depcalc {
namespace {

/// Lives beyond this could overflow a span; the records are asked then.
constexpr double longest_countable_life = 20'000;

bool isCountable(const SummaryShare& share) {
  return share.units_of_production || std::fabs(share.life) <= longest_countable_life;
}

}  // namespace

std::int16_t firstFiscalYearOf(Date placed_in_service, Date fiscal_year_end) {
  return static_cast<std::int16_t>(firstFiscalYear(placed_in_service, fiscal_year_end));
}

std::int16_t spanOf(int offset, double life, bool partial_first_year) {
  return toInteger16HalfEven(fiscalYearsSpanned(offset + life, !partial_first_year));
}

void RegisterSummary::forget() {
  entries_.clear();
  years_.clear();
  counted_ = 0;
  totals_.reset();
}

void RegisterSummary::note(std::int32_t index, const std::optional<SummaryShare>& share) {
  const auto at = static_cast<std::size_t>(index - 1);
  if (at >= entries_.size()) entries_.resize(at + 1);
  Entry& entry = entries_[at];
  if (entry.known == Known::counted && share == entry.share) return;
  uncount(entry);
  entry.known = Known::uncountable;
  if (!share || !isCountable(*share)) return;
  entry = {Known::counted, *share};
  count(*share);
}

void RegisterSummary::dropFrom(std::int32_t index) {
  while (entries_.size() >= static_cast<std::size_t>(index)) {
    uncount(entries_.back());
    entries_.pop_back();
  }
}

void RegisterSummary::count(const SummaryShare& share) {
  totals_.reset();
  Year& year = years_[share.first_year];
  ++counted_;
  ++year.assets;
  if (share.units_of_production) {
    ++year.units_of_production;
  } else {
    ++year.lives[share.partial_first_year ? 1 : 0][share.life];
  }
}

void RegisterSummary::uncount(const Entry& entry) {
  if (entry.known != Known::counted) return;
  totals_.reset();
  const auto found = years_.find(entry.share.first_year);
  Year& year = found->second;
  --counted_;
  if (entry.share.units_of_production) {
    --year.units_of_production;
  } else {
    auto& lives = year.lives[entry.share.partial_first_year ? 1 : 0];
    const auto life = lives.find(entry.share.life);
    if (--life->second == 0) lives.erase(life);
  }
  if (--year.assets == 0) years_.erase(found);
}

std::optional<RegisterSummary::Totals> RegisterSummary::totals(std::int32_t assets) const {
  const bool complete = counted_ == assets && entries_.size() == static_cast<std::size_t>(assets);
  if (!complete) return std::nullopt;
  if (!totals_) totals_ = sum();
  return totals_;
}

RegisterSummary::Totals RegisterSummary::sum() const {
  Totals totals;
  if (!years_.empty()) totals.start_year = std::min(totals.start_year, years_.begin()->first);
  for (const auto& [first_year, year] : years_) {
    const int offset = first_year - totals.start_year;
    if (year.units_of_production > 0) totals.years = std::max(totals.years, 1.0);
    for (const bool partial : {false, true}) {
      const auto& lives = year.lives[partial ? 1 : 0];
      if (lives.empty()) continue;
      const double longest = spanOf(offset, lives.rbegin()->first, partial);
      totals.years = std::max(totals.years, longest);
    }
  }
  return totals;
}

}  // namespace depcalc
