// How the container comes by its screens.
#pragma once

#include <memory>
#include <string>

#include "compare/dep_calc_display_ctl_events.h"
#include "controls/user_control.h"
#include "entry/dep_calc_ctl_events.h"
#include "help/dep_calc_popup_events.h"
#include "register/dep_calc_view_events.h"

namespace depcalc {

/// Makes the screens that the container shows. All that the container knows of a screen is that
/// it is a user control and what it asks through its events, which outlive it.
class ScreenMaker {
 public:
  using Screen = std::unique_ptr<UserControl>;

  virtual ~ScreenMaker() = default;

  virtual Screen makeCtl(UserControl& container, std::string name, DepCalcCtlEvents& events) = 0;
  virtual Screen makeDisplay(UserControl& container, std::string name,
                             DepCalcDisplayCtlEvents& events) = 0;
  virtual Screen makeView(UserControl& container, std::string name, DepCalcViewEvents& events) = 0;
  virtual Screen makePopup(UserControl& container, std::string name,
                           DepCalcPopupEvents& events) = 0;
};

}  // namespace depcalc
