// A company's register as reports see it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "reports/asset.h"
#include "reports/company_years.h"
#include "values/date.h"

namespace depcalc {

struct RegisterOfAssets {
  std::string company;  ///< its name; may be empty
  CompanyYears years{1};
  Date today;
  std::vector<ReportAsset> assets;  ///< in the register's order

  /// What the register's summary says: its first fiscal year and how many follow. Without assets
  /// both are 0.
  int start = 0;
  int span = 0;

  /// The numbers under which units were entered for an asset that is not the one there now.
  std::vector<std::int32_t> units_not_known;
  /// How many of the last assets the register's printed pages leave out, on A4, upright.
  std::size_t assets_not_printed = 0;
};

/// What the register says of itself at the top of a report: the company, what else is given, and
/// that all amounts are as saved.
std::string coverLine(const RegisterOfAssets& assets, const std::string& period);

/// "April 1, 2025 to March 31, 2026".
std::string periodOf(const RegisterOfAssets& assets, int year);

}  // namespace depcalc
