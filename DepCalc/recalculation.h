// All assets of a register calculated anew.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "DepCalc/company_assets.h"

namespace depcalc {

/// Which fiscal years the assets are calculated for.
enum class FiscalYearEnds {
  own,      ///< each keeps the one it was saved with
  company,  ///< the company's, which is saved with all of them
};

/// An amount that another one takes the place of.
struct ChangedAmount {
  std::int32_t number = 0;  ///< of the asset, from 1
  std::string id;
  std::optional<int> fiscal_year;  ///< none for the rate per unit of production
  Currency before;
  Currency after;

  friend bool operator==(const ChangedAmount&, const ChangedAmount&) = default;
};

/// An asset that stays as it is, and why.
struct LeftAsset {
  std::int32_t number = 0;
  std::string id;
  std::string reason;
};

/// What calculating all assets of a register comes to. Nothing is saved by that.
struct Recalculation {
  std::vector<ChangedAmount> changes;  ///< by asset and fiscal year
  std::vector<LeftAsset> left;
  std::int32_t calculated = 0;
  std::int32_t without_method = 0;
  std::int32_t moved = 0;                ///< assets with another fiscal-year end than before
  std::vector<CalculateDepPtr> to_save;  ///< the assets that would not be as they were
};

/// Calculates every asset as an import does. Assets without a method keep none; one that the entry
/// form would refuse to calculate, or that cannot be read whole, is left as it is.
Recalculation recalculated(CompanyAssets& assets, FiscalYearEnds ends);

/// Saves what `recalculation` of the same company came to: all of it or, where something is
/// reported, nothing. `reached` hears how many assets are saved. Answers what was reported.
std::optional<std::string> saveRecalculation(CompanyAssets& assets,
                                             const Recalculation& recalculation,
                                             const std::function<void(std::size_t)>& reached);

/// How many assets were saved with another fiscal-year end than the company's.
std::int32_t assetsOfOtherFiscalYears(CompanyAssets& assets);

}  // namespace depcalc
