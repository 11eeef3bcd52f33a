// What the columns of other programs' files are called.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "importing/asset_columns.h"

namespace depcalc {

/// The letters and digits of `text` alone, small and without accents: "Asset No." and "asset_no"
/// are the same.
std::string plainLetters(std::string_view text);

/// The depreciation of a fiscal year, as the file has it.
struct AmountOfYear {
  int year = 0;
  friend bool operator==(const AmountOfYear&, const AmountOfYear&) = default;
};

/// What a column of a file means: nothing, a property of the asset, an amount to hold against ours.
using ColumnUse = std::variant<std::monostate, AssetColumn, AmountOfYear>;

/// By which a use is remembered: "", "life", "fy2024".
std::string nameOfUse(const ColumnUse& use);
std::optional<ColumnUse> useNamed(std::string_view name);

/// What the header's names say, each property at most once: where two names could mean it, the more
/// usual one does.
std::vector<ColumnUse> usesOfHeader(std::span<const std::string> header);

}  // namespace depcalc
