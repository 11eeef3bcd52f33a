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
    : site_({.owner = [this] { return window_; }, .dpi = [this] { return dotsPerInch(window_); }}),
      stage_(site_) {}

CalculatorModel::CalculatorModel(CreateHost create_host)
    : container_(stage(), screens_, std::move(create_host)) {
  container_.show();
  container_.DepCalcCont_Initialize();
}

}  // namespace depcalc::windows
