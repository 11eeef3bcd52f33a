// What the comparison screen asks of the container.
#pragma once

#include <string>

#include "engine/calculate_dep.h"

namespace depcalc {

class DepCalcDisplayCtlEvents {
 public:
  virtual ~DepCalcDisplayCtlEvents() = default;

  /// Once per showing, before the screen is filled: the record to calculate.
  virtual void GetCalcDep(CalculateDepPtr& myCalcDep) = 0;
  /// "Save", "Close" or "ViewAll".
  virtual void ButtonClick(const std::string& myButton) = 0;
  /// The controls have been laid out after a change of size.
  virtual void ResizedDisplay() = 0;
  virtual void HelpClick(const std::string& myTopic) = 0;
};

}  // namespace depcalc
