#include "DepCalc/entry_answers.h"

#include "DepCalc/dep_calc_cont.h"
#include "common/trapped.h"

namespace depcalc {

void EntryAnswers::GetCalcDep(CalculateDepPtr& myCalcDep, Date& myFYEnd) {
  trapped("DepCalc::Calc_GetCalcDep", [&] {
    myCalcDep = container_.recordToHandOut();
    container_.refreshSummary();
    myFYEnd = container_.state_.FYEnd;
  });
}

void EntryAnswers::ButtonClick(const std::string& myButton) {
  trapped("DepCalc::DepCalcCtl1_ButtonClick", [&] {
    if (myButton == "Calc") {
      container_.ShowView(emv_Display);
    } else if (myButton == "New") {
      container_.NewRecord();
      container_.ShowView(emv_Calc);
    } else if (myButton == "SaveandNew") {
      container_.SaveCurrent();
      container_.NewRecord();
      container_.ShowView(emv_Calc);
    } else if (myButton == "Save") {
      container_.SaveCurrent();
      container_.ShowView(emv_ViewAll);
    } else if (myButton == "ViewAll") {
      container_.ShowView(emv_ViewAll);
    }
  });
}

void EntryAnswers::HelpClick(const std::string& myTopic) {
  container_.popups_.openFromForm(myTopic);
}

void EntryAnswers::CheckMe(bool& myChanged) { myChanged = container_.CheckforChanges(); }

}  // namespace depcalc
