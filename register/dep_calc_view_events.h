// What the register asks of the container.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/calculate_dep.h"

namespace depcalc {

/// The assets in table order from element 0 on, and one empty slot behind them. An empty register
/// is an array whose element 0 is empty.
using CalculateDepArray = std::vector<CalculateDepPtr>;

class DepCalcViewEvents {
 public:
  virtual ~DepCalcViewEvents() = default;

  /// The register is being filled: the assets, the first fiscal year, the fiscal years shown
  /// after it, the number of assets. Without a record in the table nothing is changed.
  virtual void GetCalcDepAll(CalculateDepArray& myCalcDep, std::int16_t& myStartYr,
                             double& myNumYrs, std::int16_t& myNumAssets) = 0;
  /// The controls have been laid out.
  virtual void ResizedDisplay() = 0;
  virtual void SaveRecord(const CalculateDepPtr& myRecord) = 0;
  /// "New" or "Edit".
  virtual void ButtonClick(const std::string& myButton) = 0;
  /// An asset is to be deleted: the array without it, and the position it had.
  virtual void DeleteButtonClick(CalculateDepArray& myCalcDep, std::int16_t myIndex) = 0;
  /// The container's current record, which a selection points to the asset selected.
  virtual void GetCalcDep(CalculateDepPtr& myCalcDep) = 0;
  virtual void GetStartDir(std::string& myStartDir) = 0;
  virtual void HelpClick(const std::string& myTopic) = 0;
  /// Whether a picture is to cover the screen while it is being filled.
  virtual void ShowCover(bool showHide) = 0;
};

}  // namespace depcalc
