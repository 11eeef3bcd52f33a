// The four calculations of many assets.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "engine/method_results.h"
#include "engine/schedule_batch.h"

namespace depcalc {

/// Calculates assets ahead, several side by side, and gives each what it comes to when it is asked
/// for. Until then nobody sees any of it: records, results, reports and errors are what they would
/// be if each had been calculated at its turn.
class MethodBatch {
 public:
  /// As many as are worth calculating at once.
  static constexpr std::size_t most = 64;

  /// Calculates `assets` ahead, in place of those before. They must live until the next ones.
  void calculate(std::span<CalculateDep* const> assets);

  /// `calculateAllMethods` of asset `index`. One that was changed meanwhile is calculated anew.
  void giveAllMethods(std::size_t index, MethodResults& results);

  /// `calculateChosen` of asset `index`.
  void giveChosen(std::size_t index);

 private:
  std::vector<CalculateDep*> assets_;
  std::vector<ScheduledAsset> inputs_;
  ScheduleBatch batch_;
  MethodResults results_;
};

}  // namespace depcalc
