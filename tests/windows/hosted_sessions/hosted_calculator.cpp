#include "tests/windows/hosted_sessions/hosted_calculator.h"

#include <stdexcept>
#include <utility>

#include "windows/com/com_call.h"
#include "windows/host/create_host.h"
#include "windows/library/calculator.h"
#include "windows/ole/container_object.h"

namespace depcalc {
namespace {

/// Of the session that is under way.
std::shared_ptr<windows::CalculatorModel> next_model;

}  // namespace

/// The test build's: the session's calculator, once.
IUnknown* windows::newCalculator() {
  if (next_model == nullptr) throw ComFailure(E_UNEXPECTED);
  return newDepCalcCont(std::exchange(next_model, nullptr));
}

namespace testing {

void HostedHands::sitAt(IUnknown& control) {
  HWND window = nullptr;
  const bool active = SUCCEEDED(control.QueryInterface(IID_PPV_ARGS(&keys_))) &&
                      SUCCEEDED(keys_->GetWindow(&window));
  native::ScreenWindow* const screen = active ? native::ScreenWindow::of(window) : nullptr;
  if (screen == nullptr) throw std::runtime_error("the control has no window");
  WindowHands::sitAt(*screen);
}

bool HostedHands::translate(MSG& message) {
  return keys_ != nullptr && keys_->TranslateAccelerator(&message) == S_OK;
}

HostedCalculator::HostedCalculator(SessionHost& host, ScreenMaker& screens, drive::DriveSite& site)
    : host_(host),
      model_(
          std::make_shared<windows::CalculatorModel>(createHostApplication, screens, site, site)) {}

HostedCalculator::~HostedCalculator() {
  host_.end();
  if (model_.use_count() > 1) host_.complain("somebody still holds the calculator");
}

void HostedCalculator::start() {
  if (std::exchange(hosted_, true)) return container().DepCalcCont_Initialize();
  next_model = model_;
  IUnknown* const control = host_.hostCalculator();
  next_model.reset();
  if (control == nullptr) throw std::runtime_error("the control cannot be hosted");
  hands_->sitAt(*control);
}

}  // namespace testing
}  // namespace depcalc
