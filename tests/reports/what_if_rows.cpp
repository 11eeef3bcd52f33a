// what_if_rows SEED COUNT: the rows of What if for random assets that the form could hold, as CSV:
// the values that each row stands for, and what each method comes to.
#include <charconv>
#include <iostream>

#include "engine/convention.h"
#include "reports/what_if.h"
#include "tests/reports/random_register.h"

namespace depcalc {
namespace {

using testing_support::Random;

SavedAsset someAsset(Random& random) {
  SavedAsset asset;
  asset.placed_in_service =
      Date::carrying(random.from(2000, 2030), random.from(1, 12), random.from(1, 28));
  asset.fiscal_year_end = Date::carrying(2023, random.from(1, 12), random.from(1, 28));
  asset.basis = Currency::fromTicks(random.from(1, 99'999'999) * std::int64_t{100});
  asset.salvage = random.oneIn(3)
                      ? Currency()
                      : Currency::fromTicks(asset.basis.ticks() / 100 / random.from(1, 9) * 100);
  asset.life = random.from(1, 50);
  asset.convention = std::to_string(random.below(5));
  asset.capacity = "0";
  return asset;
}

std::string shownOf(const std::optional<Currency>& amount) {
  return amount ? amount->toFixed4() : "";
}

void print(const SavedAsset& asset, const WhatIfRow& row) {
  std::string convention(conventionName(asset.convention));
  std::string life = std::to_string(static_cast<int>(asset.life));
  std::string salvage = asset.salvage.toFixed4();
  if (row.changed == WhatIfField::convention) convention = row.text;
  if (row.changed == WhatIfField::life) life = row.text;
  if (row.changed == WhatIfField::salvage) salvage = Currency::fromText(row.text).toFixed4();
  std::cout << asset.placed_in_service.toIsoText() << ',' << asset.fiscal_year_end.toIsoText()
            << ',' << life << ',' << convention << ',' << asset.basis.toFixed4() << ',' << salvage;
  for (const WhatIfFigures& figures : row.methods) {
    std::cout << ',' << shownOf(figures.first_year) << ',' << shownOf(figures.total);
  }
  std::cout << '\n';
}

}  // namespace
}  // namespace depcalc

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const auto number = [](std::string_view text) {
    std::uint64_t value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
  };
  depcalc::testing_support::Random random(number(argv[1]));
  for (std::uint64_t i = 0; i < number(argv[2]); ++i) {
    const depcalc::SavedAsset asset = depcalc::someAsset(random);
    for (const depcalc::WhatIfRow& row : depcalc::whatIfRows(asset)) depcalc::print(asset, row);
  }
}
