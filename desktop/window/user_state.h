// Where the user is, for what the guide and its hints have to say about that.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "desktop/guide/next_step.h"
#include "reports/asset.h"

namespace depcalc::desktop {

class Calculator;

/// In `calculator`, whose saved assets `saved` reads; `sample` says whether its company is one.
[[nodiscard]] UserState userStateIn(
    Calculator& calculator, bool sample,
    const std::function<std::optional<SavedAsset>(std::int32_t)>& saved);

}  // namespace depcalc::desktop
