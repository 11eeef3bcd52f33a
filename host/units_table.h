// Where a host of ours keeps the units produced, in the same company file as the calculator's
// table.
#pragma once

#include <string_view>

namespace depcalc {

/// The data table of units produced. The calculator does not know it; whoever deletes or saves an
/// asset without it would leave units with the wrong one, so a file that has it is of a form of
/// its own.
inline constexpr std::string_view units_table_name = "UnitsProduced";

}  // namespace depcalc
