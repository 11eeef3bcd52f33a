#include "reports/reading/register_reading.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <utility>

#include "DepCalc/asset_store.h"
#include "DepCalc/saved_types.h"
#include "DepCalc/units_store.h"
#include "engine/first_fiscal_year.h"
#include "engine/method.h"
#include "values/money_range.h"
#include "values/number_text.h"

namespace depcalc {
namespace {

/// The values of a record, each as its kind. A text may stand for another kind; nothing else can
/// go wrong, so nothing has to be caught.
class SavedValues {
 public:
  explicit SavedValues(HostRecord& record, Date today) : fields_(record.Fields()), today_(today) {}

  [[nodiscard]] std::string text(std::string_view name) const {
    return fields_.GetValue(name).asText();
  }

  [[nodiscard]] Date date(std::string_view name) const {
    const StoredValue value = fields_.GetValue(name);
    if (value.type() == StoredValue::Type::date) return value.get<Date>();
    if (value.type() != StoredValue::Type::text) return {};
    return Date::tryFromText(value.get<std::string>(), today_).value_or(Date());
  }

  [[nodiscard]] double number(std::string_view name) const {
    const StoredValue value = fields_.GetValue(name);
    if (value.type() == StoredValue::Type::real) return value.get<double>();
    return tryNumberFromText(value.asText()).value_or(0.0);
  }

  [[nodiscard]] Currency money(std::string_view name) const {
    const StoredValue value = fields_.GetValue(name);
    if (value.type() == StoredValue::Type::currency) return value.get<Currency>();
    return moneyOf(value.asText());
  }

 private:
  /// 0 for what is no number, and for one that is too large for money.
  static Currency moneyOf(std::string_view text) {
    const auto number = tryNumberFromText(text);
    return number && std::fabs(*number) < more_than_money ? Currency::fromText(text) : Currency();
  }

  HostFields& fields_;
  Date today_;
};

std::vector<Currency> readAmounts(const SavedValues& values, std::size_t count) {
  std::vector<Currency> amounts;
  amounts.reserve(count);
  std::string name;
  for (std::size_t k = 0; k < count; ++k) {
    amounts.push_back(values.money(name.assign("Dep").append(std::to_string(k))));
  }
  return amounts;
}

/// An asset by units of production keeps its rate in the place of the first amount.
std::size_t amountsToRead(const SavedAsset& asset) {
  if (countsAsUnitsOfProduction(asset.method)) return 1;
  return countedAmounts(asset.life,
                        firstFiscalYear(asset.placed_in_service, asset.fiscal_year_end));
}

SavedAsset readAsset(HostRecord& record, std::int16_t number, Date today) {
  const SavedValues values(record, today);
  SavedAsset asset{.number = number,
                   .id = values.text("AID"),
                   .name = values.text("AName"),
                   .serial = values.text("ASerial"),
                   .department = values.text("ADept"),
                   .placed_in_service = {},
                   .disposed = values.date("AEnd"),
                   .proceeds = values.money("ASale"),
                   .basis = values.money("ABasis"),
                   .salvage = {},
                   .capacity = {},
                   .life = 0,
                   .convention = {},
                   .fiscal_year_end = {},
                   .method = {},
                   .amounts = {},
                   .units = {},
                   .unreadable = wrongTypesOf(record.Fields(), number)};
  asset.placed_in_service = values.date("AStart");
  asset.salvage = values.money("ASalvage");
  asset.capacity = values.text("AProdCap");
  asset.life = values.number("DRecovery");
  asset.convention = values.text("DConvention");
  asset.fiscal_year_end = values.date("FYEnd");
  asset.method = values.text("DMethod");
  asset.amounts = readAmounts(values, amountsToRead(asset));
  return asset;
}

/// The units of each asset that is known again; the numbers of the others go into `assets`.
std::map<std::int32_t, UnitsByYear> readUnits(const UnitsStore& store, RegisterOfAssets& assets) {
  std::map<std::int32_t, UnitsByYear> units;
  for (const std::int32_t number : store.numbers()) {
    std::optional<UnitsEntry> entry = store.entry(number);
    if (!entry) continue;
    if (entry->known) {
      units[number] = std::move(entry->units);
    } else {
      assets.units_not_known.push_back(number);
    }
  }
  return units;
}

void readSummary(HostTable& table, Date today, RegisterOfAssets& assets) {
  if (!table.Exists(0)) return;
  const auto record = table.Item(0);
  const SavedValues values(*record, today);
  const auto whole = [&](std::string_view name) {
    return static_cast<int>(std::nearbyint(std::clamp(values.number(name), 0.0, 10'000.0)));
  };
  assets.start = whole("Start");
  assets.span = whole("NumYears");
}

}  // namespace

RegisterOfAssets readRegisterOfAssets(const std::shared_ptr<HostCompanyFile>& file,
                                      std::string company, Date today) {
  RegisterOfAssets assets;
  assets.company = std::move(company);
  assets.years = CompanyYears(file->FiscalYearStart().month());
  assets.today = today;
  const auto table = file->OpenTable(asset_table_name);
  auto units = readUnits(UnitsStore(file), assets);
  const std::int32_t count = std::min<std::int32_t>(table->Count(), INT16_MAX + 1);
  if (count < 2) return assets;
  readSummary(*table, today, assets);
  assets.assets.reserve(static_cast<std::size_t>(count - 1));
  for (std::int32_t i = 1; i < count; ++i) {
    const auto index = static_cast<std::int16_t>(i);
    if (!table->Exists(index)) continue;
    SavedAsset asset = readAsset(*table->Item(index), index, today);
    if (const auto own = units.find(i); own != units.end()) asset.units = std::move(own->second);
    assets.assets.emplace_back(std::move(asset));
  }
  return assets;
}

SavedAsset readSavedAsset(const std::shared_ptr<HostCompanyFile>& file, std::int32_t number,
                          Date today) {
  const auto index = static_cast<std::int16_t>(number);
  const auto record = file->OpenTable(asset_table_name)->Item(index);
  SavedAsset asset = readAsset(*record, index, today);
  asset.units = UnitsStore(file).unitsOf(number);
  return asset;
}

}  // namespace depcalc
