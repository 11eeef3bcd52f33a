#include "DepCalc/comparison_answers.h"

#include "DepCalc/dep_calc_cont.h"
#include "common/trapped.h"

namespace depcalc {

void ComparisonAnswers::GetCalcDep(CalculateDepPtr& myCalcDep) {
  trapped("DepCalc::Display_GetCalcDep", [&] { myCalcDep = container_.recordToHandOut(); });
}

void ComparisonAnswers::ButtonClick(const std::string& myButton) {
  trapped("DepCalc::DepCalcDisplayCtl1_ButtonClick", [&] {
    if (myButton == "Close") {
      container_.ShowView(emv_Calc);
    } else if (myButton == "Save") {
      // The amounts have just been calculated: nothing to warn of.
      container_.writeCurrent();
      container_.ShowView(emv_ViewAll);
    } else if (myButton == "ViewAll") {
      container_.ShowView(emv_ViewAll);
    }
  });
}

void ComparisonAnswers::ResizedDisplay() { container_.ShowView(emv_Display); }

void ComparisonAnswers::HelpClick(const std::string& myTopic) {
  container_.popups_.openFromComparison(myTopic);
}

}  // namespace depcalc
