// What a report's rows and totals must satisfy.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>

#include "reports/table.h"

namespace depcalc {

/// The amount in a row's column; 0 where there is none.
Currency amountIn(std::span<const Cell> row, std::size_t column);

/// Whether a row proves itself.
using RowProof = std::function<bool(std::span<const Cell> row)>;

/// Puts `statement` into the report's proofs, and into its disproofs a line for each row, subtotal
/// and total of its data table that does not satisfy `holds`. Subtotals must sum to the total, too.
void prove(Report& report, std::string statement, const RowProof& holds);

}  // namespace depcalc
