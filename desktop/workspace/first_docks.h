// What stands beside the calculator's page before the user has chosen. No toolkit is in it.
#pragma once

namespace depcalc::desktop {

/// Pixels at a resolution of 96 to the inch; docks are as wide as their texts ask for.
inline constexpr int assets_width = 290;
inline constexpr int insight_width = 380;

struct FirstDocks {
  bool assets = false;
  bool insight = false;
};

/// As many as leave the calculator's page its room: the form at its usual size, or nearly so where
/// Insight stands beside it too. All widths in the same unit; `page` is the form's.
[[nodiscard]] FirstDocks firstDocks(int window, int page, int assets, int insight);

}  // namespace depcalc::desktop
