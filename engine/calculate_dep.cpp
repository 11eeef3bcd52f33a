#include "engine/calculate_dep.h"

#include <algorithm>
#include <span>

#include "common/trapped.h"
#include "engine/double_declining_balance.h"
#include "engine/first_year_fraction.h"
#include "engine/lanes.h"
#include "engine/straight_line.h"
#include "engine/sum_of_years_digits.h"
#include "engine/units_of_production.h"
#include "values/number_text.h"

namespace depcalc {
namespace {

/// The rule of a schedule that has been calculated before: its amounts as they are.
auto asCalculated(std::span<const Currency> calculated) {
  return [calculated](Amounts amounts) {
    std::copy(calculated.begin(), calculated.end(), amounts.data());
  };
}

}  // namespace

std::string CalculateDep::RecIndex() const { return std::to_string(rec_index_); }

void CalculateDep::RecIndex(std::string_view text) {
  if (const auto number = tryNumberFromText(text)) rec_index_ = toLong32HalfEven(*number);
}

void CalculateDep::ASalePrice(std::string_view text) {
  if (isNumeric(text)) sale_price_ = Currency::fromText(text);
}

std::string CalculateDep::AssetProdCap() const { return numberToText(production_capacity_); }

void CalculateDep::AssetProdCap(std::string_view text) {
  production_capacity_ = tryNumberFromText(text).value_or(0.0);
}

std::string CalculateDep::DepConvention() const { return std::to_string(convention_); }

void CalculateDep::DepConvention(std::string_view text) {
  convention_ = text.empty() ? 0 : toLong32HalfEven(numberFromText(text));
}

void CalculateDep::resizeDepItems() { dep_items_.resize(amountCount(life_)); }

void CalculateDep::recreateDepItems() {
  const std::size_t count = amountCount(life_);
  if (dep_items_.size() != count) dep_items_.resize(count);
  std::fill(dep_items_.begin(), dep_items_.end(), Currency());
}

Currency CalculateDep::DepItem(std::int16_t myIndex) {
  Currency amount;
  trapped("DepCalc::Get DepItem", [&] {
    resizeDepItems();
    if (myIndex < life_ + 1.0) amount = Amounts{dep_items_}[myIndex];
  });
  return amount;
}

void CalculateDep::DepItem(std::int16_t myIndex, Currency value) {
  trapped("DepCalc::Let DepItem", [&] {
    resizeDepItems();
    Amounts{dep_items_}[myIndex] = value;
  });
}

bool CalculateDep::FullyDepreciated(double depVal, double accDep) const {
  return fullyDepreciated(basis_, salvage_, depVal, accDep);
}

ScheduleInput CalculateDep::scheduleInput() const {
  return {.basis = basis_,
          .salvage = salvage_,
          .life = life_,
          .convention = convention_,
          .first_year_fraction = first_year_fraction_};
}

void CalculateDep::computeFirstFiscalYear() {
  Silent nobody;
  first_year_fraction_ =
      firstFiscalYearOf(convention_, start_date_, fiscal_year_end_, nobody).fraction;
}

/// Rules are compiled in place, since they take less time than it takes to get to them.
template <typename Rule>
void CalculateDep::schedule(std::string_view procedure, Rule rule, std::vector<Currency>& result) {
  recreateDepItems();
  const auto calculate = [&] {
    rule(Amounts(dep_items_));
    result = dep_items_;
  };
  trapped(procedure, calculate, [&] { result.clear(); });
}

void CalculateDep::StraightLine(std::vector<Currency>& result) {
  const auto rule = [this](Amounts amounts) {
    computeFirstFiscalYear();
    unheard(scheduleInput(), amounts, [](const auto& input, auto storage, auto& nobody) {
      straightLine(input, storage, nobody);
    });
  };
  schedule("DepCalc::CalcDepSL", rule, result);
}

void CalculateDep::SumofYearsDigits(std::vector<Currency>& result) {
  const auto rule = [this](Amounts amounts) {
    unheard(scheduleInput(), amounts, [](const auto& input, auto storage, auto& nobody) {
      sumOfYearsDigits(input, storage, nobody);
    });
  };
  schedule("DepCalc::CalcDepSYD", rule, result);
}

void CalculateDep::DoubleDecliningBalance(std::vector<Currency>& result) {
  const auto rule = [this](Amounts amounts) {
    unheard(scheduleInput(), amounts, [](const auto& input, auto storage, auto& nobody) {
      doubleDecliningBalance(input, storage, nobody);
    });
  };
  schedule("DepCalc::CalcDepDDB", rule, result);
}

std::vector<Currency> CalculateDep::StraightLine() {
  std::vector<Currency> result;
  StraightLine(result);
  return result;
}

std::vector<Currency> CalculateDep::SumofYearsDigits() {
  std::vector<Currency> result;
  SumofYearsDigits(result);
  return result;
}

std::vector<Currency> CalculateDep::DoubleDecliningBalance() {
  std::vector<Currency> result;
  DoubleDecliningBalance(result);
  return result;
}

template <typename Rule>
Currency CalculateDep::rate(Rule rule) {
  Currency result;
  trapped("DepCalc::CalcDepUOP", [&] {
    const Currency rate = rule();
    Amounts{dep_items_}[0] = rate;
    result = rate;
  });
  return result;
}

Currency CalculateDep::UnitsofProduction() {
  return rate([this] { return unitsOfProduction(basis_, salvage_, production_capacity_); });
}

ScheduledAsset CalculateDep::scheduled() const {
  return {.placed_in_service = start_date_,
          .fiscal_year_end = fiscal_year_end_,
          .basis = basis_,
          .salvage = salvage_,
          .life = life_,
          .convention = convention_,
          .capacity = production_capacity_};
}

void CalculateDep::StraightLine(const CalculatedSchedules& calculated,
                                std::vector<Currency>& result) {
  const auto rule = [&](Amounts amounts) {
    first_year_fraction_ = calculated.first_year_fraction;
    asCalculated(calculated.straight_line)(amounts);
  };
  schedule("DepCalc::CalcDepSL", rule, result);
}

void CalculateDep::SumofYearsDigits(const CalculatedSchedules& calculated,
                                    std::vector<Currency>& result) {
  schedule("DepCalc::CalcDepSYD", asCalculated(calculated.sum_of_years_digits), result);
}

void CalculateDep::DoubleDecliningBalance(const CalculatedSchedules& calculated,
                                          std::vector<Currency>& result) {
  schedule("DepCalc::CalcDepDDB", asCalculated(calculated.double_declining_balance), result);
}

Currency CalculateDep::UnitsofProduction(const CalculatedSchedules& calculated) {
  return rate([&] { return calculated.rate; });
}

}  // namespace depcalc
