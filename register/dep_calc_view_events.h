// What the register asks of the container.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/calculate_dep.h"

namespace depcalc {

class DepCalcViewEvents {
 public:
  virtual ~DepCalcViewEvents() = default;

  /// All assets in table order and one empty slot behind them, the first fiscal year to show, the
  /// number of fiscal years after it, and the number of assets. A register without assets leaves
  /// all four as they are.
  virtual void GetCalcDepAll(std::vector<CalculateDepPtr>& myCalcDep, std::int16_t& myStartYr,
                             double& myNumYrs, std::int16_t& myNumAssets) = 0;
  /// The controls have been laid out after a load or a change of size.
  virtual void ResizedDisplay() = 0;
  /// Declared for containers that let the register edit; this one never does.
  virtual void SaveRecord(const CalculateDepPtr& myRecord) = 0;
  /// "New" or "Edit".
  virtual void ButtonClick(const std::string& myButton) = 0;
  /// The user has confirmed a deletion: the register without the asset, and the asset's position
  /// in it before, counted from 0; 1 when it was the only one.
  virtual void DeleteButtonClick(const std::vector<CalculateDepPtr>& myCalcDep,
                                 std::int16_t myIndex) = 0;
  /// The current record, whose index follows the selection.
  virtual void GetCalcDep(CalculateDepPtr& myCalcDep) = 0;
  /// Declared, never raised.
  virtual void GetStartDir(std::string& myStartDir) = 0;
  virtual void HelpClick(const std::string& myTopic) = 0;
  /// True before a load, false after it.
  virtual void ShowCover(bool& showHide) = 0;
};

}  // namespace depcalc
