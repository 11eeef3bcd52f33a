// The container's answers to the entry form.
#pragma once

#include "entry/dep_calc_ctl_events.h"

namespace depcalc {

class DepCalcCont;

class EntryAnswers final : public DepCalcCtlEvents {
 public:
  explicit EntryAnswers(DepCalcCont& container) : container_(container) {}

  void GetCalcDep(CalculateDepPtr& myCalcDep, Date& myFYEnd) override;
  void ButtonClick(const std::string& myButton) override;
  void HelpClick(const std::string& myTopic) override;
  void CheckMe(bool& myChanged) override;

 private:
  DepCalcCont& container_;
};

}  // namespace depcalc
