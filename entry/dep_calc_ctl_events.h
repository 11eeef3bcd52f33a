// What the entry form asks of the container.
#pragma once

#include <string>

#include "engine/calculate_dep.h"
#include "values/date.h"

namespace depcalc {

class DepCalcCtlEvents {
 public:
  virtual ~DepCalcCtlEvents() = default;

  /// Once per showing, before the form is filled: the record to edit, and the company's
  /// fiscal-year end (no date when it is not known).
  virtual void GetCalcDep(CalculateDepPtr& myCalcDep, Date& myFYEnd) = 0;
  /// "Calc", "Save", "SaveandNew", "New" or "ViewAll".
  virtual void ButtonClick(const std::string& myButton) = 0;
  virtual void HelpClick(const std::string& myTopic) = 0;
  /// Whether the record has changes that are not saved.
  virtual void CheckMe(bool& myChanged) = 0;
};

}  // namespace depcalc
