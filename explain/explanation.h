// Why an amount of depreciation is what it is, in words and steps.
//
// The steps are those that the rules of engine/ tell as they calculate; nothing is calculated here.
// Each step says what it works out, the expression, and what it comes to. Expressions are plain
// numbers with + - * / ( ), `round2()` to cents and `currency()` to ten-thousandths, halves to
// even, in the engine's order of evaluation on doubles; worked out anew they come to the very
// result, for amounts of up to 900,000,000,000, and the last one to the amount.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/calculate_dep.h"
#include "engine/units_produced.h"
#include "values/currency.h"
#include "values/date.h"

namespace depcalc {

/// What the amounts of an asset are calculated from.
struct ExplainedAsset {
  Date placed_in_service;
  Date fiscal_year_end;  ///< of which month and day count
  Currency basis;
  Currency salvage;
  double life = 0;
  std::int32_t convention = 0;
  double capacity = 0;
  Date disposed;      ///< the zero date while in service, or where it does not count
  UnitsByYear units;  ///< by fiscal year
};

/// The values of a record as it stands. Its day of disposal is left out, as the record's own
/// schedules leave it out.
ExplainedAsset explainedAsset(const CalculateDep& record);

struct ExplainedStep {
  std::string words;
  std::string expression;
  std::string result;            ///< a number; what the expression comes to
  std::string shown_expression;  ///< for people: 38,450.00 − 4,000.00; empty for a number alone
  std::string shown_result;      ///< 34,450.00
};

struct Explanation {
  std::string_view method;         ///< "SL", "SYD", "DDB", "UOP"
  std::optional<int> fiscal_year;  ///< none for the rate per unit of production
  Currency amount;
  std::vector<ExplainedStep> steps;
  Currency taken;                 ///< in all fiscal years up to this one
  Currency base;                  ///< basis less salvage value
  std::optional<Currency> saved;  ///< what was saved instead, where that is another amount
};

/// The amounts of all fiscal years of `asset` by `method`, a code or "uop": by units of production
/// the rate and the years that have units, by the others every year of the schedule, in the order
/// of the years; until its disposal. None for any other text. What cannot be calculated is the
/// calculation's error; a life beyond the calendar is error 6.
std::vector<Explanation> explain(const ExplainedAsset& asset, std::string_view method);

/// The amount of one fiscal year. Where nothing is taken, the steps say why.
Explanation explainYear(const ExplainedAsset& asset, std::string_view method, int fiscal_year);

/// "Sum of the Years' Digits, FY2025"; "Units of Production, rate per unit".
std::string titleOf(const Explanation& explanation);

}  // namespace depcalc
