#include "tests/reports/random_register.h"

#include <array>

#include "engine/method_results.h"
#include "reports/asset.h"

namespace depcalc::testing_support {
namespace {

constexpr std::array<const char*, 13> texts{"",
                                            "Office",
                                            "Warehouse",
                                            "Yard",
                                            "=1+1",
                                            "a,b",
                                            "say \"so\"",
                                            "two\nlines",
                                            "-5",
                                            "Ätna; x",
                                            "<b>&amp;</b>",
                                            "two  blanks\tand more",
                                            "\x1B[31m_x0041_"};
constexpr std::array<const char*, 10> conventions{"0", "1", "2", "3", "4", "0", "3", "4", "7", ""};
constexpr std::array<const char*, 11> methods_{"SL",  "SYD", "DDB", "UOP", "SL", "SYD",
                                               "DDB", "UOP", "uop", "",    "XYZ"};
constexpr std::array<double, 12> lives{1, 2, 3, 4, 5, 6, 7, 10, 0, 0.5, 2.5, 3.5};
constexpr std::array<int, 8> days{1, 2, 14, 15, 16, 28, 29, 31};

Date someDay(Random& random) {
  const int month = random.from(1, 12);
  const int year = random.from(2014, 2026);
  const int day = random.oneIn(3) ? random.from(1, 31) : random.of(days);
  if (random.oneIn(10)) return Date::carrying(2016 + 4 * random.below(3), 2, 29);
  return Date::exists(year, month, day) ? Date::strict(year, month, day)
                                        : Date::carrying(year, month + 1, 0);
}

Date someYearEnd(Random& random, int first_month) {
  const Date company = Date::carrying(2023, first_month, 0);
  if (!random.oneIn(3)) return company;
  if (random.oneIn(4)) return Date::strict(2024, 2, random.from(28, 29));
  return someDay(random);
}

Currency money(Random& random, int most) {
  if (random.oneIn(8))
    return Currency::fromTicks(random.below(most) * std::int64_t{10'000} + random.below(10'000));
  if (random.oneIn(20)) return {};
  return Currency::fromTicks(random.below(most * 100) * std::int64_t{100});
}

/// Amounts as the program saves them, or any.
void giveAmounts(Random& random, SavedAsset& asset) {
  const MethodResults results = calculatedFor(asset);
  if (countsAsUnitsOfProduction(asset.method)) {
    asset.amounts = {random.oneIn(10) ? money(random, 3) : results.rate};
    return;
  }
  for (const ScheduledMethod& scheduled : scheduled_methods) {
    if (asset.method == scheduled.method.code) asset.amounts = results.*scheduled.amounts;
  }
  asset.amounts.resize(static_cast<std::size_t>(random.from(0, 3) + static_cast<int>(asset.life)));
  if (!random.oneIn(6)) return;
  for (Currency& amount : asset.amounts) {
    amount = random.oneIn(5) ? Currency() - money(random, 500) : money(random, 500);
  }
}

Date someDisposal(Random& random, Date placed) {
  if (random.oneIn(2)) return {};
  if (random.oneIn(12)) return placed.plusDays(-random.from(1, 400));
  if (random.oneIn(5)) return placed.plusDays(random.below(366));
  const Date near = placed.plusDays(random.below(3'000));
  return random.oneIn(3) ? Date::carrying(near.year(), near.month() + 1, random.below(2)) : near;
}

SavedAsset someAsset(Random& random, int number, int first_month) {
  SavedAsset asset;
  asset.number = number;
  asset.id = random.oneIn(4) ? random.of(texts) : "A" + std::to_string(random.below(20));
  asset.name = random.of(texts);
  asset.serial = random.oneIn(2) ? "" : "S" + std::to_string(random.below(20));
  asset.department = random.of(texts);
  asset.placed_in_service = someDay(random);
  asset.fiscal_year_end = someYearEnd(random, first_month);
  asset.basis = money(random, 20'000);
  asset.salvage = random.oneIn(3) ? money(random, 3'000) : Currency();
  asset.capacity = random.oneIn(6) ? "0" : std::to_string(random.from(1, 5'000));
  asset.life = random.of(lives);
  asset.convention = random.of(conventions);
  asset.method = random.of(methods_);
  asset.disposed = someDisposal(random, asset.placed_in_service);
  if (!asset.disposed.isNone()) asset.proceeds = money(random, 9'000);
  const int first_year = ReportAsset(asset).firstYear();
  giveAmounts(random, asset);
  if (countsAsUnitsOfProduction(asset.method) && !random.oneIn(4)) {
    for (int i = random.below(8); i > 0; --i) {
      asset.units[first_year + random.from(-1, 8)] =
          random.oneIn(4) ? random.below(30'000) / 10.0 : random.below(2'000);
    }
  }
  return asset;
}

/// What a reading of the record leaves of its amounts.
SavedAsset asRead(SavedAsset asset) {
  if (!countsAsUnitsOfProduction(asset.method)) {
    asset.amounts.resize(countedAmounts(asset.life, ReportAsset(asset).firstYear()));
  }
  return asset;
}

}  // namespace

MethodResults calculatedFor(const SavedAsset& asset) {
  CalculateDep calculated;
  calculated.AssetStartDate(asset.placed_in_service);
  calculated.AssetBasis(asset.basis);
  calculated.AssetSalvage(asset.salvage);
  calculated.AssetProdCap(asset.capacity);
  calculated.DepRecovery(asset.life);
  calculated.FYEnd(asset.fiscal_year_end);
  calculated.DepConvention(asset.convention);
  MethodResults results;
  calculateAllMethods(calculated, results);
  return results;
}

RegisterOfAssets someRegister(Random& random, std::vector<SavedAsset>& saved) {
  const int first_month = random.from(1, 12);
  RegisterOfAssets assets;
  assets.years = CompanyYears(first_month);
  assets.today = random.oneIn(4) ? assets.years.lastDay(random.from(2015, 2029))
                                 : Date::strict(random.from(2015, 2029), random.from(1, 12),
                                                random.from(1, 28));
  assets.start = random.from(2014, 2020);
  assets.span = random.below(9);
  const int count = random.oneIn(15) ? 0 : random.from(1, 9);
  for (int i = 1; i <= count; ++i) {
    saved.push_back(someAsset(random, i, first_month));
    assets.assets.emplace_back(asRead(saved.back()));
  }
  if (random.oneIn(4)) assets.units_not_known.push_back(random.from(1, 12));
  if (random.oneIn(4)) assets.assets_not_printed = static_cast<std::size_t>(random.below(12));
  return assets;
}

}  // namespace depcalc::testing_support
