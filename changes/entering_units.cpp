#include "changes/entering_units.h"

#include <algorithm>

#include "engine/asset_fiscal_years.h"
#include "engine/method.h"
#include "engine/schedule_span.h"
#include "values/asset_limits.h"
#include "values/number_text.h"
#include "values/rounding.h"

namespace depcalc {
namespace {

constexpr double most_units = 999'999'999'999;

std::string methodInWords(std::string_view code) {
  for (const Method& method : methods) {
    if (method.code == code) return "is depreciated by " + std::string(method.name);
  }
  return "has no method";
}

/// Of the years that the useful life touches. A life that is none counts as no time.
int lastYearOfLife(const SavedAsset& asset, int first_year) {
  const double years = nearestEven(fiscalYearsSpanned(asset.life, asset.convention == "0"));
  return first_year + static_cast<int>(std::clamp(years, 1.0, 100.0)) - 1;
}

}  // namespace

OrRefusal<double> unitsFrom(std::string_view text) {
  const auto units = tryNumberFromText(text);
  if (!units) return "The units produced must be a number.";
  if (*units < 0) return "The units produced must be 0 or more.";
  if (*units > most_units) return "Please enter at most 999,999,999,999 units.";
  return *units == 0 ? 0.0 : numberFromText(numberToText(*units));
}

std::optional<std::string> refusedUnits(const SavedAsset& asset) {
  const ReportAsset seen(asset);
  if (isUnitsOfProduction(seen.method())) return std::nullopt;
  return "Units are entered for assets by Units of Production; this one " +
         methodInWords(seen.method()) + ".";
}

std::optional<std::string> refusedUnitsYear(const SavedAsset& asset, int year) {
  const int first = ReportAsset(asset).firstYear();
  if (year >= first && year <= last_year_of_calendar) return std::nullopt;
  return "The asset's first fiscal year is FY" + std::to_string(first) +
         ". Please enter that year or a later one" +
         (year > last_year_of_calendar ? ", up to FY9999." : ".");
}

int fiscalYearOf(const SavedAsset& asset, Date day) {
  return AssetFiscalYears(asset.placed_in_service, asset.fiscal_year_end).of(day);
}

std::optional<std::string> foreignUnits(CompanyAssets& assets, std::int32_t number) {
  const auto entry = assets.units().entry(number);
  if (!entry || entry->known) return std::nullopt;
  return "The units it has were entered for another asset, \"" + entry->id +
         "\". Please clear them first.";
}

std::vector<UnitsRow> unitsRows(const SavedAsset& asset, const UnitsByYear& units, int through) {
  const int first = ReportAsset(asset).firstYear();
  int last = std::max(through, lastYearOfLife(asset, first));
  if (!units.empty()) last = std::max(last, units.rbegin()->first);
  last = std::min(last, last_year_of_calendar);
  const Currency rate = asset.amounts.empty() ? Currency() : asset.amounts.front();
  const AmountsByYear amounts =
      amountsOfUnits(units, rate, asset.basis - asset.salvage, first, last);
  double left = tryNumberFromText(asset.capacity).value_or(0.0);
  std::vector<UnitsRow> rows;
  for (int year = first; year <= last; ++year) {
    UnitsRow row{.year = year, .units = {}, .amount = {}, .left = left};
    if (const auto entered = units.find(year); entered != units.end()) {
      row.units = entered->second;
      row.left = left -= entered->second;
    }
    if (const auto amount = amounts.find(year); amount != amounts.end())
      row.amount = amount->second;
    rows.push_back(row);
  }
  return rows;
}

std::optional<std::string> saveUnits(CompanyAssets& assets, std::int32_t number,
                                     const UnitsByYear& units) {
  return assets.changeAtOnce([&] { assets.units().put(number, units); });
}

}  // namespace depcalc
