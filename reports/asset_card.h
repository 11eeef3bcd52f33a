// One asset: its fields, its disposal, its schedule, and the methods side by side.
#pragma once

#include <cstdint>
#include <optional>

#include "reports/register.h"
#include "reports/table.h"

namespace depcalc {

/// The page of asset `number`; none where the register has no such asset. Its data table is the
/// schedule: the fiscal years that the asset's life spans and further ones with an amount, up to
/// its disposal, after which nothing is accumulated and no book value left. An asset without
/// amounts has no schedule.
std::optional<Report> assetReport(const RegisterOfAssets& assets, std::int32_t number);

}  // namespace depcalc
