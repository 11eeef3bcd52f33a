// What the user was told that a company file holds.
#pragma once

#include <QString>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace depcalc::testing {

/// An asset by the names of the columns that `depcalc list --format csv` writes.
using Row = std::map<std::string, std::string>;
using Rows = std::vector<Row>;

/// The assets in what `depcalc list --format csv` printed.
Rows rowsOf(const QString& csv);

/// The fields of the entry form as the user sees them, by the names of the columns they go into.
using FormTexts = std::map<std::string, std::string>;

/// What happened to the assets as the user saw it; nothing at first.
struct Told {
  enum class What { nothing, saved, deleted, imported };

  What what = What::nothing;
  std::optional<std::size_t> at;  ///< the asset saved or deleted; nothing: a new one
  FormTexts shown;                ///< what the user saw as it was saved; only this is known of it
};

/// Whether `after` is what was there before and what the user was told since; what differs, else
/// "".
std::string wrongIn(const Rows& before, const Told& told, const Rows& after);
/// What of an asset is not as the user saw it, else "". A field shown empty says nothing.
std::string wrongIn(const Row& row, const FormTexts& shown);

}  // namespace depcalc::testing
