#include "DepCalc/calculator_screens.h"

#include <utility>

#include "compare/dep_calc_display_ctl.h"
#include "entry/dep_calc_ctl.h"
#include "help/dep_calc_popup.h"
#include "register/dep_calc_view.h"

namespace depcalc {

ScreenMaker::Screen CalculatorScreens::makeCtl(UserControl& container, std::string name,
                                               DepCalcCtlEvents& events) {
  return std::make_unique<DepCalcCtl>(container, std::move(name), events);
}

ScreenMaker::Screen CalculatorScreens::makeDisplay(UserControl& container, std::string name,
                                                   DepCalcDisplayCtlEvents& events) {
  return std::make_unique<DepCalcDisplayCtl>(container, std::move(name), events);
}

ScreenMaker::Screen CalculatorScreens::makeView(UserControl& container, std::string name,
                                                DepCalcViewEvents& events) {
  return std::make_unique<DepCalcView>(container, std::move(name), events);
}

ScreenMaker::Screen CalculatorScreens::makePopup(UserControl& container, std::string name,
                                                 DepCalcPopupEvents& events) {
  return std::make_unique<DepCalcPopup>(container, std::move(name), events);
}

}  // namespace depcalc
