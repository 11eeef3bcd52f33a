// The container's answers to the comparison screen.
#pragma once

#include "compare/dep_calc_display_ctl_events.h"

namespace depcalc {

class DepCalcCont;

class ComparisonAnswers final : public DepCalcDisplayCtlEvents {
 public:
  explicit ComparisonAnswers(DepCalcCont& container) : container_(container) {}

  void GetCalcDep(CalculateDepPtr& myCalcDep) override;
  void ButtonClick(const std::string& myButton) override;
  void ResizedDisplay() override;
  void HelpClick(const std::string& myTopic) override;

 private:
  DepCalcCont& container_;
};

}  // namespace depcalc
