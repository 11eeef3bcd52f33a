#include "reports/what_if.h"

#include <cmath>

#include "common/trapped.h"
#include "engine/convention.h"
#include "reports/todays_calculation.h"
#include "values/display_format.h"

namespace depcalc {
namespace {

constexpr int shortest_life = 1;  // years; as the form takes them
constexpr int longest_life = 50;
constexpr int years_around = 2;
constexpr std::array salvage_percents{0.0, 5.0, 10.0, 20.0};

WhatIfFigures figuresOf(const std::vector<Currency>& amounts) {
  if (amounts.empty()) return {};
  WhatIfFigures figures{amounts.front(), Currency()};
  const bool done = trapped("DepCalc::WhatIf", [&] {
    for (const Currency amount : amounts) *figures.total += amount;
  });
  if (!done) figures.total.reset();
  return figures;
}

class Rows {
 public:
  explicit Rows(const SavedAsset& asset) : asset_(asset) { add(WhatIfField::none, {}, asset); }

  void addConvention(std::size_t number) {
    SavedAsset other = asset_;
    other.convention = std::to_string(number);
    if (conventionName(other.convention) == conventionName(asset_.convention)) return;
    add(WhatIfField::convention, std::string(convention_names[number]), std::move(other));
  }

  void addLife(int years) {
    if (years < shortest_life || years > longest_life || years == asset_.life) return;
    SavedAsset other = asset_;
    other.life = years;
    add(WhatIfField::life, std::to_string(years), std::move(other));
  }

  void addSalvage(double percent) {
    SavedAsset other = asset_;
    other.salvage = Currency::fromDoubleTo2HalfEven(asset_.basis.toDouble() * percent / 100);
    const bool known = other.salvage == asset_.salvage || other.salvage == last_salvage_;
    if (known || other.salvage > asset_.basis) return;
    last_salvage_ = other.salvage;
    add(WhatIfField::salvage, formatMoney(other.salvage), std::move(other));
  }

  [[nodiscard]] std::vector<WhatIfRow> take() { return std::move(rows_); }

 private:
  void add(WhatIfField changed, std::string text, SavedAsset values) {
    WhatIfRow row{changed, std::move(text), {}, {}};
    if (const auto results = calculatedToday(ReportAsset(std::move(values)))) {
      for (std::size_t i = 0; i < scheduled_methods.size(); ++i) {
        row.methods[i] = figuresOf(*results.*scheduled_methods[i].amounts);
      }
      row.rate = results->rate;
    }
    rows_.push_back(std::move(row));
  }

  const SavedAsset& asset_;
  std::optional<Currency> last_salvage_;
  std::vector<WhatIfRow> rows_;
};

}  // namespace

std::vector<WhatIfRow> whatIfRows(const SavedAsset& asset) {
  Rows rows(asset);
  for (std::size_t i = 0; i < convention_names.size(); ++i) rows.addConvention(i);
  const double nearest = std::min(std::max(asset.life, 0.0), 2.0 * longest_life);
  const int first = static_cast<int>(std::ceil(nearest)) - years_around;
  const int last = static_cast<int>(std::floor(nearest)) + years_around;
  for (int years = first; years <= last; ++years) rows.addLife(years);
  for (const double percent : salvage_percents) rows.addSalvage(percent);
  return rows.take();
}

std::string whatIfCaption(const WhatIfRow& row) {
  switch (row.changed) {
    case WhatIfField::none:
      return "As it is";
    case WhatIfField::convention:
      return row.text;
    case WhatIfField::life:
      return row.text + (row.text == "1" ? " year" : " years");
    case WhatIfField::salvage:
      return row.text == "0.00" ? "No salvage" : "Salvage " + row.text;
  }
  return {};
}

}  // namespace depcalc
