// The calculator's own screens.
#pragma once

#include "DepCalc/screen_maker.h"

namespace depcalc {

class CalculatorScreens final : public ScreenMaker {
 public:
  Screen makeCtl(UserControl& container, std::string name, DepCalcCtlEvents& events) override;
  Screen makeDisplay(UserControl& container, std::string name,
                     DepCalcDisplayCtlEvents& events) override;
  Screen makeView(UserControl& container, std::string name, DepCalcViewEvents& events) override;
  Screen makePopup(UserControl& container, std::string name, DepCalcPopupEvents& events) override;
};

}  // namespace depcalc
