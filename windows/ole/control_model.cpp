#include "windows/ole/control_model.h"

namespace depcalc::windows {
namespace {

int dotsPerInch(HWND window) {
  HDC device = GetDC(window);
  const int dots = GetDeviceCaps(device, LOGPIXELSX);
  ReleaseDC(window, device);
  return dots;
}

}  // namespace

ControlModel::ControlModel()
    : windows_(std::make_unique<native::WindowsSite>(native::WindowsSite::Surroundings{
          .owner = [this] { return window_; }, .dpi = [this] { return dotsPerInch(window_); }})),
      stage_(*windows_) {}

ControlModel::ControlModel(Site& site, Trace& trace) : stage_(site, &trace) {}

CalculatorModel::CalculatorModel(CreateHost create_host)
    : container_(stage(), screens_, std::move(create_host)) {}

CalculatorModel::CalculatorModel(CreateHost create_host, ScreenMaker& screens, Site& site,
                                 Trace& trace)
    : ControlModel(site, trace), container_(stage(), screens, std::move(create_host)) {}

void CalculatorModel::start() {
  container_.show();
  container_.DepCalcCont_Initialize();
}

}  // namespace depcalc::windows
