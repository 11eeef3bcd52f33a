// What Insight is about. No toolkit is in it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "reports/asset.h"

namespace depcalc::desktop {

/// Where the user looks at an asset.
enum class InsightPlace : std::uint8_t {
  nothing,
  entry,          ///< on the form
  comparison,     ///< beside the methods, with changes that are not saved
  assetRegister,  ///< in the table of all assets
  assets,         ///< in the list beside the page
  report          ///< in a report's window
};

/// An asset, and the amount of it that is in view.
struct InsightSubject {
  InsightPlace place = InsightPlace::nothing;
  /// Its values: on the form and beside the methods as they are there, else as they are saved.
  /// `number` is 0 where it was never saved.
  SavedAsset asset;
  /// The method in view, else the asset's own: "SL", "SYD", "DDB", "UOP"; "" for none.
  std::string method;
  /// The fiscal year in view; nothing where a total or no amount is.
  std::optional<int> fiscal_year;

  [[nodiscard]] bool isNothing() const { return place == InsightPlace::nothing; }
  bool operator==(const InsightSubject&) const = default;
};

/// "TRK-014 Delivery truck", as far as the asset has them; "" for nothing.
[[nodiscard]] std::string nameOf(const InsightSubject& subject);

}  // namespace depcalc::desktop
