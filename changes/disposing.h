// Assets that leave service, for hosts that let their users say so: what may be entered, what it
// comes to, and how it is saved.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "DepCalc/company_assets.h"
#include "reports/asset.h"

namespace depcalc {

/// When an asset left service, and what was obtained for it.
struct Disposal {
  Date date;
  Currency proceeds;

  friend bool operator==(const Disposal&, const Disposal&) = default;
};

/// A value, or why there is none: a sentence for the user.
template <typename Value>
using OrRefusal = std::variant<Value, std::string>;

/// What the disposal of an asset comes to.
struct DisposalEffect {
  bool scheduled = false;  ///< whether it has amounts at all
  int fiscal_year = 0;     ///< the asset's own, in which it leaves service
  Currency depreciation;   ///< of that fiscal year
  Currency accumulated;    ///< up to the end of that fiscal year
  Currency book_value;     ///< basis less that
  Currency gain;           ///< proceeds less book value; below 0 a loss
};

/// Proceeds from 0 to 9,999,999.99 in cents; none are 0.
OrRefusal<Currency> proceedsFrom(std::string_view text);

/// Why an asset placed in service on `placed_in_service` cannot have left it on `date`: that was
/// before, or it lies more than fifty years after `today`. Nothing where it can.
std::optional<std::string> refusedDisposalDate(Date date, Date placed_in_service, Date today);

/// A disposal of `asset` as a user entered it.
OrRefusal<Disposal> disposalFrom(std::string_view date, std::string_view proceeds,
                                 const SavedAsset& asset, Date today);

/// What the disposal of `asset` on that day would come to, whatever was saved of one. Out of range:
/// error 6.
DisposalEffect effectOf(SavedAsset asset, const Disposal& disposal);

/// Asset `number` with its units, as reports see it.
SavedAsset savedAsset(CompanyAssets& assets, std::int32_t number);

/// Whether a disposal of asset `number` is saved.
bool isDisposed(CompanyAssets& assets, std::int32_t number);

/// Why asset `number` cannot be saved anew: it cannot be read whole, and what was not read would be
/// lost. Nothing where it can.
std::optional<std::string> whyNotSavedAnew(CompanyAssets& assets, std::int32_t number);

/// Saves the disposal of asset `number`, which can be saved anew, in the place of the one it has;
/// none takes that back. All or nothing; answers what was reported.
std::optional<std::string> saveDisposal(CompanyAssets& assets, std::int32_t number,
                                        const std::optional<Disposal>& disposal);

}  // namespace depcalc
