// Screens that do nothing by themselves, so that a test can raise any event at any time.
#pragma once

#include <string>
#include <utility>

#include "DepCalc/screen_maker.h"

namespace depcalc::testing {

template <typename Events>
class StandIn : public UserControl {
 public:
  StandIn(UserControl& container, std::string name, Events& its_events, int width, int height)
      : UserControl(container, std::move(name)), events(its_events) {
    setSize(width, height);
    SetupPalette();
  }

  Events& events;
};

class StandInScreens : public ScreenMaker {
 public:
  Screen makeView(UserControl& container, std::string name, DepCalcViewEvents& events) override {
    return make(view, container, std::move(name), events, 9000, 7000);
  }
  Screen makeCtl(UserControl& container, std::string name, DepCalcCtlEvents& events) override {
    return make(ctl, container, std::move(name), events, 8000, 6000);
  }
  Screen makeDisplay(UserControl& container, std::string name,
                     DepCalcDisplayCtlEvents& events) override {
    return make(display, container, std::move(name), events, 8500, 6500);
  }
  Screen makePopup(UserControl& container, std::string name, DepCalcPopupEvents& events) override {
    return make(popup1 == nullptr ? popup1 : popup2, container, std::move(name), events, 3000,
                2000);
  }

  StandIn<DepCalcViewEvents>* view = nullptr;
  StandIn<DepCalcCtlEvents>* ctl = nullptr;
  StandIn<DepCalcDisplayCtlEvents>* display = nullptr;
  StandIn<DepCalcPopupEvents>* popup1 = nullptr;
  StandIn<DepCalcPopupEvents>* popup2 = nullptr;

 private:
  template <typename Events>
  Screen make(StandIn<Events>*& kept, UserControl& container, std::string name, Events& events,
              int width, int height) {
    auto screen =
        std::make_unique<StandIn<Events>>(container, std::move(name), events, width, height);
    kept = screen.get();
    return screen;
  }
};

}  // namespace depcalc::testing
