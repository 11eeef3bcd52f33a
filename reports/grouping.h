// Assets in groups.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "reports/register.h"
#include "reports/table.h"

namespace depcalc {

enum class Grouping : std::uint8_t { none, department, method, convention };

/// What `asset` is grouped by: its department, its method's code, its convention in words.
std::string_view groupOf(const ReportAsset& asset, Grouping grouping);

/// The groups of a register in the order of code points, the empty one first, and the positions of
/// their assets in the register. Without grouping no group at all.
std::map<std::string, std::vector<std::size_t>> groupsOf(const RegisterOfAssets& assets,
                                                         Grouping grouping);

/// How a group is called: its text, "(none)" for the empty one.
std::string groupName(const std::string& group);

/// "1 asset", "2 assets".
std::string countedAssets(std::size_t count);

/// Gives `table`, whose row i is asset `positions`[i] of the register, its subtotals by group and
/// its total.
void addTotals(Table& table, const RegisterOfAssets& assets,
               const std::vector<std::size_t>& positions, Grouping grouping);

}  // namespace depcalc
