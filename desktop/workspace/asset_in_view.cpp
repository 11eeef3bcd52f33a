#include "desktop/workspace/asset_in_view.h"

#include <cmath>

#include "engine/first_fiscal_year.h"
#include "engine/method.h"
#include "values/number_text.h"

namespace depcalc::desktop {
namespace {

std::int32_t numberOf(const CalculateDep& record) {
  const double number = tryNumberFromText(record.RecIndex()).value_or(0.0);
  return number >= 1 && number <= INT16_MAX ? static_cast<std::int32_t>(number) : 0;
}

/// An asset by units of production keeps its rate in the place of the first amount.
std::vector<Currency> amountsOf(const CalculateDep& record) {
  std::vector<Currency> amounts = record.depItems();
  amounts.resize(countsAsUnitsOfProduction(record.DepMethod())
                     ? 1
                     : countedAmounts(record.DepRecovery(),
                                      firstFiscalYear(record.AssetStartDate(), record.FYEnd())));
  return amounts;
}

}  // namespace

SavedAsset assetInView(const CalculateDep& record) {
  return {.number = numberOf(record),
          .id = record.AssetID(),
          .name = record.AssetName(),
          .serial = record.ASerial(),
          .department = record.ADept(),
          .placed_in_service = record.AssetStartDate(),
          .disposed = record.AssetEndDate(),
          .proceeds = Currency::fromText(record.ASalePrice()),
          .basis = record.AssetBasis(),
          .salvage = record.AssetSalvage(),
          .capacity = record.AssetProdCap(),
          .life = record.DepRecovery(),
          .convention = record.DepConvention(),
          .fiscal_year_end = record.FYEnd(),
          .method = record.DepMethod(),
          .amounts = amountsOf(record),
          .units = {},
          .unreadable = {}};
}

}  // namespace depcalc::desktop
