// Which asset and year a cell of a report is about. No toolkit is in it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "desktop/reports/report_desk.h"

namespace depcalc::desktop {

struct PointedAmount {
  std::int32_t asset = 0;          ///< its number in the register
  std::optional<int> fiscal_year;  ///< nothing for what is of no year
  bool operator==(const PointedAmount&) const = default;
};

/// What a cell of `report`, which is what `desk` shows, is about; nothing for one of no single
/// asset, as in a roll-forward.
[[nodiscard]] std::optional<PointedAmount> pointedAmount(const ReportDesk& desk,
                                                         const Report& report, std::size_t table,
                                                         std::size_t row, std::size_t column);

}  // namespace depcalc::desktop
