#include "changes/disposing.h"

#include <utility>

#include "DepCalc/saved_types.h"
#include "reports/reading/register_reading.h"
#include "values/display_format.h"
#include "values/number_text.h"

namespace depcalc {
namespace {

constexpr double largest_proceeds = 9'999'999.99;
constexpr double years_from_today = 50;

}  // namespace

OrRefusal<Currency> proceedsFrom(std::string_view text) {
  if (text.empty()) return Currency();
  const auto proceeds = tryNumberFromText(text);
  if (!proceeds) return "The proceeds must be a number.";
  if (*proceeds < 0) return "The proceeds must be 0 or more.";
  if (*proceeds > largest_proceeds) return "Please enter proceeds of at most 9,999,999.99.";
  return moneyAsShown(text);
}

std::optional<std::string> refusedDisposalDate(Date date, Date placed_in_service, Date today) {
  if (date < placed_in_service) {
    return "The asset was placed in service on " + placed_in_service.toText() +
           ". Please enter that day or a later one.";
  }
  if (date > today.plusYears(years_from_today)) {
    return "Please enter a date less than 50 years from today.";
  }
  return std::nullopt;
}

OrRefusal<Disposal> disposalFrom(std::string_view date, std::string_view proceeds,
                                 const SavedAsset& asset, Date today) {
  const auto day = Date::tryFromText(date, today);
  // Day 0 stands for no date.
  if (!day || day->isNone()) return "Please enter a valid date.";
  if (auto refusal = refusedDisposalDate(*day, asset.placed_in_service, today)) return *refusal;
  auto amount = proceedsFrom(proceeds);
  if (auto* refusal = std::get_if<std::string>(&amount)) return std::move(*refusal);
  return Disposal{*day, std::get<Currency>(amount)};
}

DisposalEffect effectOf(SavedAsset asset, const Disposal& disposal) {
  asset.disposed = disposal.date;
  asset.proceeds = disposal.proceeds;
  const Currency basis = asset.basis;
  const ReportAsset disposed(std::move(asset));
  const int year = disposed.disposalYear().value_or(disposed.firstYear());
  DisposalEffect effect{.scheduled = disposed.isScheduled(),
                        .fiscal_year = year,
                        .depreciation = disposed.amount(year),
                        .accumulated = disposed.accumulated(year),
                        .book_value = {},
                        .gain = disposed.gain()};
  effect.book_value = basis - effect.accumulated;
  return effect;
}

SavedAsset savedAsset(CompanyAssets& assets, std::int32_t number) {
  return readSavedAsset(assets.state().m_orvcf, number, assets.today());
}

bool isDisposed(CompanyAssets& assets, std::int32_t number) {
  const auto record =
      assets.file().OpenTable(asset_table_name)->Item(static_cast<std::int16_t>(number));
  const StoredValue day = record->Fields().GetValue("AEnd");
  return day.type() == StoredValue::Type::date && !day.get<Date>().isNone();
}

std::optional<std::string> whyNotSavedAnew(CompanyAssets& assets, std::int32_t number) {
  const auto table = assets.file().OpenTable(asset_table_name);
  const auto wrong = wrongTypesIn(*table, static_cast<std::int16_t>(number));
  if (!wrong.empty()) return wrong.front() + " Saving the asset would lose that value.";
  const std::string said = assets.asset(number)->RecIndex();
  if (said != std::to_string(number)) return "Its record says that it is number " + said + ".";
  return std::nullopt;
}

std::optional<std::string> saveDisposal(CompanyAssets& assets, std::int32_t number,
                                        const std::optional<Disposal>& disposal) {
  const CalculateDepPtr asset = assets.asset(number);
  const Disposal saved = disposal.value_or(Disposal());
  asset->AssetEndDate(saved.date);
  asset->ASalePrice(saved.proceeds.toText());
  return assets.changeAtOnce([&] {
    assets.store().open();
    assets.store().DepCalcContSaveRecord(asset);
  });
}

}  // namespace depcalc
